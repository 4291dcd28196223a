// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/text_label.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"

namespace quillet {

namespace {
constexpr double kLineShare = 1.4;  // of the letters' size
}

TextLabel::TextLabel(const TypeStyle& style, Token color, TextAnchor anchor, QWidget* parent)
    : QLabel(parent), style_(style), color_(color), anchor_(anchor) {
  setTextFormat(Qt::PlainText);
}

QSize TextLabel::sizeHint() const {
  Look& look = lookOf(*this);
  return {static_cast<int>(std::ceil(look.text.width(text(), style_))),
          static_cast<int>(std::ceil(style_.pixels * look.text.scale() * kLineShare))};
}

QSize TextLabel::minimumSizeHint() const { return {0, sizeHint().height()}; }

void TextLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  TextAnchor anchor = anchor_;
  if (layoutDirection() == Qt::RightToLeft && anchor != TextAnchor::centre)
    anchor = anchor == TextAnchor::left ? TextAnchor::right : TextAnchor::left;
  look.text.drawElided(painter, {QRectF(rect()), anchor}, text(), style_, look[color_]);
}

}  // namespace quillet
