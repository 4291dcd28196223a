// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sort_button.h"

namespace quillet {

SortButton::SortButton(SortMenu& menu, QWidget* parent) : MenuButton(parent), menu_(menu) {
  setMenu(&menu);
  setToolTip(tr("Sort By"));
  follow();
}

void SortButton::follow() {
  setVisible(menu_.hasChoices());
  const QString text = tr("Sort: %1").arg(menu_.chosenText());
  if (text == this->text()) return;
  setText(text);
  updateGeometry();
}

}  // namespace quillet
