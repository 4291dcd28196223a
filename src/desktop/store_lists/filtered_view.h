// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QWidget>

#include "desktop/services/state_file.h"
#include "desktop/store_lists/filter_panel.h"

namespace quillet {

class StoreFeed;

/// A list with the panel of its filters beside it, which the user shows and hides: that is kept in
/// the state file.
class FilteredView : public QWidget {
  Q_OBJECT

 public:
  /// `key`: of the state file, which outlives it. `isShown`: as long as nobody chose.
  FilteredView(QWidget* list, StateFile& state, QString key, bool isShown);

  [[nodiscard]] bool showsFilters() const { return isShown_; }
  void toggleFilters();
  /// What the panel offers and how many apps each choice would leave, while it is seen. The feed's
  /// answer says the currency.
  void show(FilterPanelState state, const StoreFeed& feed);
  using QWidget::show;

  [[nodiscard]] int leastWidth() const;

 Q_SIGNALS:
  /// By the user.
  void filtersChanged(const quillet::AppFilters& filters);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fitPanel();

  StateFile& state_;
  QString key_;
  bool isShown_;
  FilterPanel* panel_;
};

}  // namespace quillet
