// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/icons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kKeptIcons = 400;

QPixmap render(const QString& name, double size, const QColor& color, double ratio) {
  QFile file(QStringLiteral(":/quillet/icons/%1.svg").arg(name));
  if (!file.open(QFile::ReadOnly)) return {};
  const QColor opaque(color.rgb());
  QSvgRenderer renderer(file.readAll().replace("currentColor", opaque.name().toUtf8()));
  const int side = static_cast<int>(std::lround(size * ratio));
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setOpacity(color.alphaF());
  renderer.render(&painter, QRectF(0, 0, side, side));
  painter.end();
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace

Icons::Icons() : cache_(kKeptIcons) {}

QPixmap Icons::pixmap(const QString& name, double size, const QColor& color, double ratio) {
  const QString key = name + u'/' + color.name(QColor::HexArgb) + u'/' + QString::number(size) +
                      u'@' + QString::number(ratio);
  if (const QPixmap* kept = cache_.object(key)) return *kept;
  const QPixmap made = render(name, size, color, ratio);
  cache_.insert(key, new QPixmap(made));
  return made;
}

void Icons::draw(QPainter& painter, const QPointF& corner, const QString& name, double size,
                 const QColor& color) {
  const PixelGrid grid(painter);
  painter.drawPixmap(QPointF(grid.x(corner.x()), grid.y(corner.y())),
                     pixmap(name, size, color, grid.ratio()));
}

}  // namespace quillet
