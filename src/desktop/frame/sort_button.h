// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

#include "desktop/frame/sort_menu.h"

namespace quillet {

/// "Sort: Added" above a list; opens the menu of its orders.
class SortButton : public QPushButton {
  Q_OBJECT

 public:
  /// The menu outlives the button.
  explicit SortButton(SortMenu& menu, QWidget* parent = nullptr);

  /// Says what is chosen now; hidden where there is nothing to choose.
  void follow();

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  SortMenu& menu_;
};

}  // namespace quillet
