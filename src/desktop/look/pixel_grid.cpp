// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/pixel_grid.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace quillet {

PixelGrid::PixelGrid(QPainter& painter) : painter_(painter) {
  const QTransform device = painter.deviceTransform();
  ratio_ = device.m11();
  dx_ = device.dx();
  dy_ = device.dy();
}

double PixelGrid::x(double value) const {
  return (std::round(value * ratio_ + dx_) - dx_) / ratio_;
}

double PixelGrid::y(double value) const {
  return (std::round(value * ratio_ + dy_) - dy_) / ratio_;
}

QRectF PixelGrid::rect(const QRectF& rect) const {
  return {QPointF(x(rect.left()), y(rect.top())), QPointF(x(rect.right()), y(rect.bottom()))};
}

double PixelGrid::strokeX(double value, double width) const {
  return x(value - width / 2) + width / 2;
}

double PixelGrid::strokeY(double value, double width) const {
  return y(value - width / 2) + width / 2;
}

QPainterPath PixelGrid::stroked(const QPainterPath& path, double width) const {
  QPainterPath result;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    const QPointF point(strokeX(element.x, width), strokeY(element.y, width));
    if (element.isMoveTo()) {
      result.moveTo(point);
    } else {
      result.lineTo(point);
    }
  }
  return result;
}

double PixelGrid::thickness(double width) const {
  // Half a device pixel more or less is seen as softness; a quarter too little is not.
  return std::max(1.0, std::floor(width * ratio_ + 0.25)) / ratio_;
}

void PixelGrid::horizontal(double left, double right, double y, const QColor& color) {
  painter_.fillRect(
      QRectF(QPointF(x(left), this->y(y)), QPointF(x(right), this->y(y) + thickness())), color);
}

void PixelGrid::vertical(double x, double top, double bottom, const QColor& color) {
  painter_.fillRect(
      QRectF(QPointF(this->x(x), y(top)), QPointF(this->x(x) + thickness(), y(bottom))), color);
}

void paintBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
              const Border& border) {
  const PixelGrid grid(painter);
  const QRectF outer = grid.rect(rect);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  if (border.color.alpha() == 0) {
    painter.setBrush(fill);
    painter.drawRoundedRect(outer, radius, radius);
    return;
  }
  // Two shapes side by side, not one over the other: layers would leave a seam at the corners.
  const double width = grid.thickness(border.width);
  QPainterPath inside;
  inside.addRoundedRect(outer.adjusted(width, width, -width, -width), radius - width,
                        radius - width);
  QPainterPath whole;
  whole.addRoundedRect(outer, radius, radius);
  painter.fillPath(inside, fill);
  painter.fillPath(whole.subtracted(inside), border.color);
}

}  // namespace quillet
