// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/framed.h"

#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

Framed::Framed(QAbstractScrollArea* view) {
  constexpr QMargins kFrame(1, 5, 1, 5);
  view->setFrameShape(QFrame::NoFrame);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kFrame);
  column->addWidget(view);
}

void Framed::paintEvent(QPaintEvent* /*event*/) {
  constexpr double kCorner = 8;
  QPainter painter(this);
  paintBox(painter, rect(), kCorner, Qt::transparent, {lookOf(*this)[Token::edge]});
}

}  // namespace quillet
