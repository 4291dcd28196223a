// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/text_label.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr double kLine = 1.4;  // of the size of its letters

}  // namespace

TextLabel::TextLabel(const TypeStyle& type, Token ink, QWidget* parent)
    : QLabel(parent), type_(type), ink_(ink) {
  setTextFormat(Qt::PlainText);
}

void TextLabel::setType(const TypeStyle& type, Token ink) {
  if (type_ == type && ink_ == ink) return;
  type_ = type;
  ink_ = ink;
  updateGeometry();
  update();
}

QSize TextLabel::sizeHint() const {
  Look& look = lookOf(*this);
  return {static_cast<int>(std::ceil(look.text.width(text(), type_))),
          static_cast<int>(std::ceil(type_.pixels * look.text.scale() * kLine))};
}

QSize TextLabel::minimumSizeHint() const { return {0, sizeHint().height()}; }

void TextLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  look.text.drawElided(painter, {QRectF(rect()), isMirrored ? TextAnchor::right : TextAnchor::left},
                       text(), type_, look[ink_]);
}

}  // namespace quillet
