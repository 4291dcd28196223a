// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/sticky_header.h"

#include <QPainter>
#include <QStyle>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/artwork_label.h"
#include "desktop/page/watch_button.h"

namespace quillet {

namespace {

constexpr int kArtwork = 24;
constexpr int kGap = 12;

}  // namespace

StickyHeader::StickyHeader(const PageWorld& world, QWidget* parent)
    : QWidget(parent),
      artwork_(new ArtworkLabel(world.view.images, kArtwork, this)),
      watch_(new WatchButton(world, WatchButtonSize::small, this)) {
  setAccessibleName(tr("Head of the page"));
}

void StickyHeader::show(const PageFacts& facts, const PageMark& price) {
  name_ = nameLine(facts.name);
  price_ = price;
  artwork_->show(facts.artwork.value_or(""), name_);
  watch_->show(facts);
  place();
  update();
}

void StickyHeader::setInset(int inset) {
  inset_ = inset;
  place();
  update();
}

void StickyHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place();
}

void StickyHeader::place() {
  const QRect place(inset_, (kHeight - 1 - kArtwork) / 2, kArtwork, kArtwork);
  artwork_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  const QSize button = watch_->sizeHint();
  const QRect end({width() - inset_ - button.width(), (kHeight - 1 - button.height()) / 2}, button);
  watch_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), end));
}

void StickyHeader::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  painter.fillRect(rect(), look[Token::base]);
  PixelGrid(painter).horizontal(0, width(), height() - 1, look[Token::line]);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
  const TextAnchor end = isMirrored ? TextAnchor::left : TextAnchor::right;
  const int artwork = kArtwork + kGap;
  const int watch = watch_->width() + kGap;
  QRectF line(inset_, 0, width() - 2 * inset_, height() - 1);
  line.adjust(isMirrored ? watch : artwork, 0, isMirrored ? -artwork : -watch, 0);
  double price = 0;
  if (price_.kind == MarkKind::down || price_.kind == MarkKind::up) {
    const Pill pill{price_.kind == MarkKind::down ? PillKind::down : PillKind::up, price_.text, {}};
    const QPointF corner(isMirrored ? line.left() : line.right(),
                         line.center().y() - pillHeight(look, PillSize::small) / 2);
    price = paintPill(painter, look, corner, pill, PillSize::small, end);
  } else {
    price = look.text.draw(painter, {line, end}, price_.text, kControlType.tabular(),
                           look[Token::text]);
  }
  line.adjust(isMirrored ? price + kGap : 0, 0, isMirrored ? 0 : -price - kGap, 0);
  look.text.drawElided(painter, {line, start}, name_, kControlType.weighing(600),
                       look[Token::text]);
}

}  // namespace quillet
