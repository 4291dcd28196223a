// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "desktop/lists/section.h"

class QGridLayout;
class QLabel;
class QPushButton;

namespace quillet {

class TextLabel;

struct DealsEmptyState {
  QString line;
  QString sentence;  ///< empty for none
  bool canCheck = false;
  bool canExplain = false;  ///< how prices come here
  bool canClear = false;
  std::vector<SelectorChoice> storefronts;  ///< to go on to, in the place of the one that is shown

  friend bool operator==(const DealsEmptyState&, const DealsEmptyState&) = default;
};

/// What stands in the place of deals while there are none.
class DealsEmpty : public QWidget {
  Q_OBJECT

 public:
  DealsEmpty();

  void show(const DealsEmptyState& state);
  using QWidget::show;

 Q_SIGNALS:
  void checkAsked();
  void clearAsked();
  void storefrontChosen(const std::string& code);

 private:
  void showStorefronts();

  DealsEmptyState state_;
  TextLabel* line_;
  QLabel* sentence_;
  QPushButton* check_;
  QPushButton* explain_;
  QPushButton* clear_;
  QLabel* explanation_;
  QWidget* storefronts_;
  QGridLayout* grid_;
};

}  // namespace quillet
