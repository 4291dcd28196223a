// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/popover_frame.h"

#include <QBitmap>
#include <QPainter>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kCorner = 10;
constexpr int kAway = 6;  // from what it belongs to

}  // namespace

QRect popoverPlace(const QWidget& below, const QSize& size) {
  const QRect on = below.screen()->availableGeometry();
  const QRect at(below.mapToGlobal(QPoint(0, 0)), below.size());
  QRect place(QPoint(at.left(), at.bottom() + 1 + kAway), size);
  if (below.layoutDirection() == Qt::RightToLeft) place.moveRight(at.right());
  if (place.bottom() > on.bottom()) place.moveBottom(at.top() - 1 - kAway);
  const int last = std::max(on.left(), on.right() - size.width());
  place.moveLeft(std::clamp(place.left(), on.left(), last));
  place.moveTop(std::max(place.top(), on.top()));
  return place;
}

void cutPopoverCorners(QWidget& popover) {
  QBitmap mask(popover.size());
  mask.fill(Qt::color0);
  QPainter painter(&mask);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::color1);
  painter.drawRoundedRect(popover.rect(), kCorner, kCorner);
  painter.end();
  popover.setMask(mask);
}

void paintPopover(QWidget& popover) {
  Look& look = lookOf(popover);
  QPainter painter(&popover);
  painter.fillRect(popover.rect(), look[Token::base]);
  paintBox(painter, popover.rect(), kCorner, look[Token::base], {look[Token::edge], 1});
}

}  // namespace quillet
