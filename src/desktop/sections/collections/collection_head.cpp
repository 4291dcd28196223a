// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collection_head.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kHeight = 64;  ///< this, kNameLine and kTotalsLine at a text size of 100 %
constexpr int kTile = 36;
constexpr int kIcon = 18;
constexpr int kTextAt = 68;
constexpr double kNameLine = 20;
constexpr double kTotalsLine = 16;
constexpr double kBetweenLines = 1;
constexpr int kInset = 20;
constexpr double kTileRadius = 9;

}  // namespace

CollectionHeadView::CollectionHeadView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize CollectionHeadView::sizeHint() const {
  const double more = lookOf(*this).growth() - 1;
  return {0, kHeight + static_cast<int>(std::ceil((kNameLine + kTotalsLine) * more))};
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
  const QRectF tile(kInset, std::floor((height() - kTile) / 2.0), kTile, kTile);
  paintBox(painter, tile, kTileRadius, look[Token::selection]);
  const double gap = (kTile - kIcon) / 2.0;
  look.icons.draw(painter, tile.topLeft() + QPointF(gap, gap), head_.icon, kIcon,
                  look[Token::accentText]);
  const double width = this->width() - kTextAt - kInset;
  const double name = kNameLine * look.growth();
  const double totals = kTotalsLine * look.growth();
  const double top = std::floor((height() - name - kBetweenLines - totals) / 2);
  look.text.drawElided(painter, {QRectF(kTextAt, top, width, name)}, head_.name, kBlockType,
                       look[Token::text]);
  look.text.drawElided(painter, {QRectF(kTextAt, top + name + kBetweenLines, width, totals)},
                       head_.totals, kFactType.tabular(), look[Token::secondary]);
}

}  // namespace quillet
