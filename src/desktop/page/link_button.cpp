// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/link_button.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kIcon = 14;
constexpr double kGap = 6;
constexpr int kHeight = 18;

}  // namespace

LinkButton::LinkButton(const QString& text, const TypeStyle& type, const QString& icon,
                       QWidget* parent)
    : QAbstractButton(parent), type_(type), icon_(icon) {
  setText(text);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LinkButton::sizeHint() const {
  double width = lookOf(*this).text.width(text(), type_);
  if (!icon_.isEmpty()) width += kGap + kIcon;
  return {static_cast<int>(std::ceil(width)),
          static_cast<int>(std::ceil(kHeight * lookOf(*this).text.scale()))};
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  const QColor& ink = look[isEnabled() ? Token::accentText : Token::control];
  const double icon = icon_.isEmpty() ? 0 : kGap + kIcon;
  const QRectF line(0, 0, width() - icon, height());
  const double end = look.text.drawElided(painter, {line}, text(), type_, ink);
  if (underMouse() && isEnabled()) {
    const double below = look.text.baseline(0, height(), type_) + 2;
    PixelGrid(painter).horizontal(0, end, below, ink);
  }
  if (!icon_.isEmpty()) {
    look.icons.draw(painter, {end + kGap, (height() - kIcon) / 2}, icon_, kIcon, ink);
  }
}

}  // namespace quillet
