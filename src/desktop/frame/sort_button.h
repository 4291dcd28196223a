// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/frame/sort_menu.h"
#include "desktop/look/menu_button.h"

namespace quillet {

/// "Sort: Added" above a list; opens the menu of its orders.
class SortButton : public MenuButton {
  Q_OBJECT

 public:
  /// The menu outlives the button.
  explicit SortButton(SortMenu& menu, QWidget* parent = nullptr);

  /// Says what is chosen now; hidden where there is nothing to choose.
  void follow();

 private:
  SortMenu& menu_;
};

}  // namespace quillet
