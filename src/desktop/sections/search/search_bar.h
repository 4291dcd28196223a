// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

#include "analysis/filter_labels.h"
#include "analysis/search_presets.h"

class QPushButton;

namespace quillet {

class Chip;
class ChipLine;
class TextLabel;

struct SearchBarState {
  AppFilters filters;
  int shown = 0;  ///< of `all` apps
  int all = 0;
  bool isPartial = false;  ///< more may be shown once more is known
  QString news;            ///< "3 new since 12 Nov"; empty for none
  bool canSave = false;
};

/// The bar above what a search found: presets, a chip for each filter that is set, how many apps
/// they leave, and what keeps the search.
class SearchBar : public QWidget {
  Q_OBJECT

 public:
  SearchBar();

  /// Nobody is told.
  void show(const SearchBarState& state);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user.
  void changed(const quillet::AppFilters& filters);
  void saveAsked();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void addPresets();
  void showChips();
  void addChip();
  void arrange();
  [[nodiscard]] QString countText() const;
  [[nodiscard]] int saveWidth(bool hasText) const;

  SearchBarState state_;
  std::vector<SearchPreset> presets_;
  std::vector<SetFilter> set_;
  std::vector<Chip*> presetChips_;
  std::vector<Chip*> chips_;  ///< of the filters that are set
  QPushButton* save_;
  TextLabel* news_;
  TextLabel* count_;
  ChipLine* line_ = nullptr;
  bool isTold_ = true;  ///< whether a change is the user's
};

}  // namespace quillet
