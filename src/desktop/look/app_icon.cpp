// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/app_icon.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace quillet {

namespace {

// A window manager takes the nearest; larger ones are the installed icon's matter.
constexpr int kWindowSizes[] = {16, 24, 32, 48, 64, 128};
constexpr int kTraySizes[] = {16, 22, 24, 32, 44, 48};

QByteArray drawing(const QString& name) {
  QFile file(QStringLiteral(":/quillet/%1.svg").arg(name));
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap rendered(QSvgRenderer& renderer, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(0, 0, size, size));
  return pixmap;
}

/// Below on the right, where the sign leaves room, with a gap around it.
void paintDot(QPixmap& pixmap, const QColor& color) {
  const double size = pixmap.width();
  const QPointF middle(size * 0.8, size * 0.8);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.drawEllipse(middle, size * 0.26, size * 0.26);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setBrush(color);
  painter.drawEllipse(middle, size * 0.18, size * 0.18);
}

}  // namespace

QIcon applicationIcon() {
  QSvgRenderer renderer(drawing(QStringLiteral("quillet")));
  QIcon icon;
  for (const int size : kWindowSizes) icon.addPixmap(rendered(renderer, size));
  return icon;
}

QIcon trayIcon(const QColor& ink, const QColor& dot, TrayNews news) {
  QSvgRenderer renderer(drawing(QStringLiteral("quillet-symbolic"))
                            .replace("currentColor", ink.name(QColor::HexRgb).toUtf8()));
  QIcon icon;
  for (const int size : kTraySizes) {
    QPixmap pixmap = rendered(renderer, size);
    if (news == TrayNews::unread) paintDot(pixmap, dot);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace quillet
