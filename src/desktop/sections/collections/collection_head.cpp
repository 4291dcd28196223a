// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collection_head.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kHeight = 64;
constexpr int kTile = 36;
constexpr int kIcon = 18;
constexpr QPoint kTileAt{20, 14};
constexpr int kTextAt = 68;
constexpr int kInset = 20;
constexpr double kTileRadius = 9;

}  // namespace

CollectionHeadView::CollectionHeadView(QWidget* parent) : QWidget(parent) {
  setFixedHeight(kHeight);
}

void CollectionHeadView::show(const CollectionHead& head) {
  if (head == head_) return;
  head_ = head;
  setAccessibleName(head.name + QStringLiteral(", ") + head.totals);
  update();
}

void CollectionHeadView::paintEvent(QPaintEvent* /*event*/) {
  if (head_.name.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  Look& look = lookOf(*this);
  const QRectF tile(kTileAt, QSizeF(kTile, kTile));
  paintBox(painter, tile, kTileRadius, look[Token::selection]);
  const double gap = (kTile - kIcon) / 2.0;
  look.icons.draw(painter, tile.topLeft() + QPointF(gap, gap), head_.icon, kIcon,
                  look[Token::accentText]);
  const double width = this->width() - kTextAt - kInset;
  look.text.drawElided(painter, {QRectF(kTextAt, 13, width, 20)}, head_.name, kBlockType,
                       look[Token::text]);
  look.text.drawElided(painter, {QRectF(kTextAt, 34, width, 16)}, head_.totals, kFactType.tabular(),
                       look[Token::secondary]);
}

}  // namespace quillet
