// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/menu_button.h"

#include <QMenu>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kType{12.5, 500};
constexpr int kHeight = 32;
constexpr double kLeft = 10;
constexpr double kGap = 6;
constexpr double kChevron = 10;
constexpr double kRight = 6;

}  // namespace

QSize MenuButton::sizeHint() const {
  const double width = kLeft + lookOf(*this).text.width(text(), kType) + kGap + kChevron + kRight;
  return {static_cast<int>(std::ceil(width)), kHeight};
}

void MenuButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  if (isDown() || (menu() != nullptr && menu()->isVisible())) {
    paintBox(painter, rect(), 8, look[Token::neutralTint]);
  } else if (underMouse()) {
    paintBox(painter, rect(), 8, look[Token::hover]);
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double width = this->width();
  const QRectF line(isMirrored ? kRight + kChevron + kGap : kLeft, 0,
                    width - kLeft - kGap - kChevron - kRight, height());
  look.text.drawElided(painter, {line, isMirrored ? TextAnchor::right : TextAnchor::left}, text(),
                       kType, look[Token::secondary]);
  look.icons.draw(painter,
                  {isMirrored ? kRight : width - kRight - kChevron, (height() - kChevron) / 2 + 1},
                  QStringLiteral("chevron-down"), kChevron, look[Token::tertiary]);
}

}  // namespace quillet
