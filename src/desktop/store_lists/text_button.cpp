// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/text_button.h"

#include <cmath>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {
constexpr int kHeight = 28;  // below which a button's text is small
}

TextButton::TextButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
  setButtonKind(*this, ButtonKind::flat);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TextButton::sizeHint() const {
  const double width = lookOf(*this).text.width(text(), kSmallControlType);
  return {static_cast<int>(std::ceil(width)) + 2 * kPadding, kHeight};
}

}  // namespace quillet
