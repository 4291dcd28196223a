// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QSlider;

namespace quillet {

class Chip;
class ChipLine;
class TextLabel;

struct DealsBarState {
  std::vector<std::string> chips;  ///< those that are set
  int minimumDrop = 0;             ///< percent
  QString facts;                   ///< of when the prices are, and when they are looked for again
  std::int64_t shown = 0;          ///< of `all` deals
  std::int64_t all = 0;
};

/// The bar above the deals: chips, the drop from which they count, of when they are, and how many.
class DealsBar : public QWidget {
  Q_OBJECT

 public:
  DealsBar();

  /// Nobody is told; a slider that is being dragged stays where it is.
  void show(const DealsBarState& state);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user: chips by their IDs, and percent.
  void chipsChosen(const std::vector<std::string>& chips);
  void dropChosen(int percent);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] std::vector<std::string> chosen() const;
  void tellChips();
  void showDrop(int percent);
  void arrange();

  std::vector<Chip*> chips_;
  ChipLine* line_ = nullptr;
  TextLabel* dropName_;
  QSlider* drop_ = nullptr;
  TextLabel* dropValue_;
  TextLabel* facts_;
  TextLabel* count_;
  std::optional<int> hairline_;
  bool isTold_ = true;  ///< whether a change is the user's
};

}  // namespace quillet
