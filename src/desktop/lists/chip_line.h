// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <optional>
#include <vector>

class QAbstractButton;
class QMenu;
class QWidget;

namespace quillet {

class Chip;
class MoreChip;

/// Chips side by side in a bar, as many as have room; the others are in a menu. Behind them, what
/// clears them all.
class ChipLine : public QObject {
  Q_OBJECT

 public:
  /// The bar owns it.
  explicit ChipLine(QWidget& bar);

  /// Children of the bar, in their order. Where there are others, a hairline stands behind the
  /// first `leading`.
  void setChips(std::vector<Chip*> chips, std::size_t leading = 0);
  [[nodiscard]] const std::vector<Chip*>& chips() const { return chips_; }
  void setCanClear(bool canClear) { canClear_ = canClear; }
  /// The last of all in the order of the tab key.
  [[nodiscard]] QWidget* last() const;

  /// How wide it is with every chip in sight.
  [[nodiscard]] int wholeWidth() const;
  /// Places all between `left` and `right`; returns the right edge of what is seen.
  int arrange(int left, int right);
  /// Of the hairline; absent while there is none.
  [[nodiscard]] std::optional<int> hairline() const { return hairline_; }

 Q_SIGNALS:
  void clearAsked();

 private:
  [[nodiscard]] int gapBefore(std::size_t chip) const;
  [[nodiscard]] int clearWidth() const;
  /// How many chips have room within `width`, with the menu for the others.
  [[nodiscard]] std::size_t fitting(int width) const;
  void fillMenu();
  void step(QObject* from, int by);

  QWidget& bar_;
  std::vector<Chip*> chips_;
  std::size_t leading_ = 0;
  std::size_t shown_ = 0;  ///< chips that have room
  bool canClear_ = false;
  MoreChip* more_;
  QMenu* menu_;
  QAbstractButton* clear_;
  std::optional<int> hairline_;
};

}  // namespace quillet
