// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sheet.h"

#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kCorner = 10;

}  // namespace

Sheet::Sheet(QWidget* parent) : QWidget(parent), layout_(new QVBoxLayout(this)) {
  layout_->setContentsMargins(1, 1, 0, 0);
  layout_->setSpacing(0);
}

void Sheet::add(QWidget* part, int stretch) { layout_->addWidget(part, stretch); }

void Sheet::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::side]);
  // Larger than the sheet to the right and below, so that one corner alone is round.
  const QRectF box = layoutDirection() == Qt::RightToLeft
                         ? QRectF(rect()).adjusted(-2 * kCorner, 0, 0, 2 * kCorner)
                         : QRectF(rect()).adjusted(0, 0, 2 * kCorner, 2 * kCorner);
  paintBox(painter, box, kCorner, look[Token::base], {look[Token::sheetEdge]});
}

}  // namespace quillet
