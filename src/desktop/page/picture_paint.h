// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRectF>

class QPainter;

namespace quillet {

struct Look;

/// What goes around a screenshot.
struct PictureFrame {
  double radius = 0;
  QColor edge;
};

/// Fills `place`, whose proportions are the picture's, with corners cut and a thin edge inside.
void drawPicture(QPainter& painter, const QRectF& place, const QPixmap& picture,
                 const PictureFrame& frame);
void drawPicture(QPainter& painter, const QRectF& place, const QImage& picture,
                 const PictureFrame& frame);

/// What stands for one that has not come or never will.
void drawPictureTile(QPainter& painter, Look& look, const QRectF& place, double radius);

}  // namespace quillet
