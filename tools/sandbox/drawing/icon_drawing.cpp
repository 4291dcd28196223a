// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/icon_drawing.h"

#include <QLinearGradient>
#include <QPainter>

namespace quillet::sandbox {

QImage drawIcon(const Subject& subject, int side) {
  QImage image(side, side, QImage::Format_RGB32);
  QPainter painter(&image);
  QLinearGradient gradient(0, 0, 0, side);
  const int hue = static_cast<int>(subject.key % 360);
  gradient.setColorAt(0, QColor::fromHsv(hue, 130, 240));
  gradient.setColorAt(1, QColor::fromHsv((hue + 25) % 360, 200, 170));
  painter.fillRect(image.rect(), gradient);
  return image;
}

QImage drawBundleIcon(const std::vector<Subject>& apps, int side) {
  return drawIcon(apps.front(), side);
}

}  // namespace quillet::sandbox
