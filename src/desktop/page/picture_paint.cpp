// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/picture_paint.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

/// Exactly the device's pixels where it is almost that: else all of them would be blurred.
double sharpened(double scale, double deviceRatio) {
  const double sharp = 1 / deviceRatio;
  return std::abs(scale / sharp - 1) < 0.01 ? sharp : scale;
}

void drawTexture(QPainter& painter, const QRectF& place, QBrush texture, const QSizeF& size,
                 const PictureFrame& frame) {
  const double ratio = PixelGrid(painter).ratio();
  QTransform onto = QTransform::fromTranslate(place.x(), place.y());
  onto.scale(sharpened(place.width() / size.width(), ratio),
             sharpened(place.height() / size.height(), ratio));
  texture.setTransform(onto);
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  painter.setBrush(texture);
  painter.drawRoundedRect(place, frame.radius, frame.radius);
  painter.restore();
  paintBox(painter, place, frame.radius, Qt::transparent, {frame.edge});
}

}  // namespace

void drawPicture(QPainter& painter, const QRectF& place, const QPixmap& picture,
                 const PictureFrame& frame) {
  drawTexture(painter, place, QBrush(picture), picture.size(), frame);
}

void drawPicture(QPainter& painter, const QRectF& place, const QImage& picture,
                 const PictureFrame& frame) {
  drawTexture(painter, place, QBrush(picture), picture.size(), frame);
}

void drawPictureTile(QPainter& painter, Look& look, const QRectF& place, double radius) {
  constexpr double kLargestIcon = 24;
  paintBox(painter, place, radius, look[Token::neutralTint]);
  const double icon = std::min(kLargestIcon, std::floor(place.height() / 6) * 2);
  look.icons.draw(painter, place.center() - QPointF(icon / 2, icon / 2), QStringLiteral("image"),
                  icon, look[Token::disabled]);
}

}  // namespace quillet
