// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/window_sketch.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>

#include "sandbox/drawing/icon_drawing.h"

namespace quillet::sandbox {

namespace {

QColor mixture(const QColor& a, const QColor& b, double ofB) {
  const auto part = [&](int x, int y) { return static_cast<int>(x + (y - x) * ofB); };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

/// Bright and dark enough for a window to wear it, on white too.
bool isWearable(const QColor& colour) {
  return colour.hslSaturation() >= 60 && colour.lightness() >= 50 && colour.lightness() <= 185;
}

/// The colour of the icon that its windows wear.
QColor brandOf(const Palette& palette) {
  if (palette.tone == Tone::vivid) return QColor::fromRgba(palette.bottom);
  for (const Ink ink : {palette.glyphBottom, palette.top}) {
    if (const QColor colour = QColor::fromRgba(ink); isWearable(colour)) return colour;
  }
  return QColor::fromRgba(palette.accent);
}

}  // namespace

WindowColours coloursOf(const IconDesign& design, WindowTone tone) {
  const QColor brand = brandOf(*design.palette);
  const QColor white(Qt::white);
  const QColor night = mixture(QColor(0x1E, 0x21, 0x2A), brand, .06);
  switch (tone) {
    case WindowTone::dark:
      return {night,
              mixture(night, QColor(Qt::black), .25),
              mixture(brand, white, .25),
              mixture(night, brand, .35),
              QColor(0xE8, 0xEB, 0xF2),
              mixture(night, white, .26)};
    case WindowTone::tinted:
      return {mixture(white, brand, .04),
              mixture(white, brand, .13),
              brand,
              mixture(white, brand, .26),
              mixture(brand, QColor(0x16, 0x1A, 0x26), .82),
              mixture(mixture(white, brand, .2), QColor(0x8C, 0x93, 0xA3), .35)};
    case WindowTone::light: break;
  }
  return {white,
          QColor(0xF4, 0xF5, 0xF8),
          brand,
          mixture(white, brand, .2),
          QColor(0x24, 0x28, 0x34),
          QColor(0xD3, 0xD7, 0xE0)};
}

WindowSketch::WindowSketch(QPainter& painter, const IconDesign& design, WindowTone tone,
                           std::uint64_t key)
    : painter_(painter), design_(design), colours_(coloursOf(design, tone)), state_(key | 1U) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setPen(Qt::NoPen);
}

double WindowSketch::between(double least, double most) {
  state_ ^= state_ << 13U;
  state_ ^= state_ >> 7U;
  state_ ^= state_ << 17U;
  return least +
         (most - least) * static_cast<double>(state_ >> 40U) / static_cast<double>(1U << 24U);
}

void WindowSketch::fill(const QRectF& area, const QColor& colour) {
  painter_.fillRect(area, colour);
}

void WindowSketch::card(const QRectF& area, const QColor& colour, double radius) {
  painter_.setBrush(colour);
  painter_.drawRoundedRect(area, radius, radius);
}

void WindowSketch::words(QPointF place, double length, double height, const QColor& colour) {
  card(QRectF(place, QSizeF(length, height)), colour, height / 2);
}

void WindowSketch::paragraph(const QRectF& area, int lines) {
  constexpr double kLeading = 4.6;
  for (int i = 0; i < lines && (i + 1) * kLeading < area.height() + kLeading / 2; ++i) {
    const double length = area.width() * (i + 1 == lines ? between(.35, .6) : between(.82, 1));
    words(area.topLeft() + QPointF(0, i * kLeading), length, 1.7, colours_.line);
  }
}

void WindowSketch::text(const QRectF& area) {
  words(area.topLeft(), std::min(area.width() * .6, 34.0), 3.4, colours_.strong);
  double top = area.top() + 8.5;
  while (top + 8 < area.bottom()) {
    const int lines = 3 + static_cast<int>(between(0, 2.9));
    paragraph({area.left(), top, area.width(), area.bottom() - top}, lines);
    top += lines * 4.6 + 4;
    if (top + 16 > area.bottom()) break;
    words({area.left(), top}, between(12, 24), 2.4, colours_.brand);
    top += 6;
  }
}

QRectF WindowSketch::band(const QRectF& area, double height) {
  fill({area.topLeft(), QSizeF(area.width(), height)}, colours_.brand);
  const QColor white(255, 255, 255);
  const double middle = area.top() + height / 2;
  words({area.left() + 6, middle - 1.6}, std::min(area.width() * .3, 26.0), 3.2, white);
  for (int i = 1; i <= 3; ++i) {
    if (area.width() < 80) break;
    words({area.right() - 4 - i * 11.0, middle - .9}, 8, 1.8, QColor(255, 255, 255, 130));
  }
  return area.adjusted(0, height, 0, 0);
}

QRectF WindowSketch::sidebar(const QRectF& area, double width) {
  fill({area.topLeft(), QSizeF(width, area.height())}, colours_.side);
  const int chosen = 1 + static_cast<int>(between(0, 4));
  double top = area.top() + 8;
  for (int i = 0; top + 4 < area.bottom() - 8; ++i, top += i % 5 == 0 ? 9.5 : 6.2) {
    if (i == chosen) card({area.left() + 2.5, top - 2, width - 5, 5.8}, colours_.tint, 1.6);
    card({area.left() + 5, top - .3, 2.4, 2.4}, i % 5 == 0 ? colours_.brand : colours_.line, .8);
    words({area.left() + 9.5, top}, between(.4, .85) * (width - 15), 1.8,
          i == chosen || i % 5 == 0 ? colours_.brand : colours_.line);
  }
  return area.adjusted(width, 0, 0, 0);
}

void WindowSketch::picture(const QRectF& area) {
  painter_.save();
  QPainterPath clip;
  clip.addRoundedRect(area, 2, 2);
  painter_.setClipPath(clip, Qt::IntersectClip);
  fill(area, colours_.tint);
  const double w = area.width();
  const double h = area.height();
  painter_.setBrush(mixture(colours_.tint, QColor(Qt::white), .6));
  painter_.drawEllipse(area.topLeft() + QPointF(w * between(.62, .85), h * .27), h * .1, h * .1);
  for (const double depth : {.35, .7}) {
    QPainterPath hill(area.bottomLeft());
    const double peak = w * between(.2, .7);
    hill.lineTo(area.left(), area.top() + h * (.62 + depth * .2));
    hill.lineTo(area.left() + peak, area.top() + h * (.3 + depth * .35));
    hill.lineTo(area.left() + peak + w * .2, area.top() + h * (.5 + depth * .3));
    hill.lineTo(area.right(), area.top() + h * (.42 + depth * .4));
    hill.lineTo(area.bottomRight());
    painter_.fillPath(hill, mixture(colours_.tint, colours_.brand, depth));
  }
  painter_.restore();
}

void WindowSketch::cards(const QRectF& area, int columns, int rows) {
  constexpr double kGap = 4;
  const double width = (area.width() - kGap * (columns - 1)) / columns;
  const double height = (area.height() - kGap * (rows - 1)) / rows;
  for (int i = 0; i < columns * rows; ++i) {
    const int column = i % columns;
    const int row = i / columns;
    const QRectF each(area.left() + column * (width + kGap), area.top() + row * (height + kGap),
                      width, height - 8);
    picture(each);
    words(each.bottomLeft() + QPointF(0, 2), width * between(.5, .8), 1.9, colours_.strong);
    words(each.bottomLeft() + QPointF(0, 5.2), width * between(.3, .5), 1.5, colours_.line);
  }
}

void WindowSketch::rows(const QRectF& area, int count) {
  const double height = area.height() / count;
  for (int i = 0; i < count; ++i) {
    const double top = area.top() + i * height;
    const double icon = height * .62;
    card({area.left(), top + height * .19, icon, icon},
         mixture(colours_.tint, colours_.brand, between(0, .8)), icon * .25);
    const double left = area.left() + icon + 4;
    const double room = area.right() - left;
    words({left, top + height * .26}, between(.4, .7) * room, std::min(2.4, height * .2),
          colours_.strong);
    words({left, top + height * .56}, between(.25, .5) * room, std::min(1.8, height * .16),
          colours_.line);
    if (i + 1 < count) fill({left, top + height, area.right() - left, .25}, colours_.line);
  }
}

void WindowSketch::chart(const QRectF& area) {
  for (int i = 0; i < 4; ++i)
    fill({area.left(), area.top() + area.height() * i / 4, area.width(), .3}, colours_.side);
  constexpr int kPoints = 9;
  QPainterPath curve;
  double level = between(.5, .8);
  for (int i = 0; i < kPoints; ++i) {
    const QPointF point(area.left() + area.width() * i / (kPoints - 1),
                        area.top() + area.height() * level);
    i == 0 ? curve.moveTo(point) : curve.lineTo(point);
    level = std::clamp(level + between(-.24, .14), .08, .9);
  }
  QPainterPath below = curve;
  below.lineTo(area.bottomRight());
  below.lineTo(area.bottomLeft());
  QColor pale = colours_.brand;
  pale.setAlphaF(.18F);
  painter_.fillPath(below, pale);
  painter_.strokePath(curve, QPen(colours_.brand, 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.setBrush(colours_.brand);
  painter_.drawEllipse(curve.currentPosition(), 1.7, 1.7);
}

void WindowSketch::bars(const QRectF& area, int count) {
  const double step = area.width() / count;
  for (int i = 0; i < count; ++i) {
    const double height = area.height() * between(.25, 1);
    card({area.left() + i * step, area.bottom() - height, step * .6, height},
         i % 3 == 2 ? colours_.brand : colours_.tint, 1);
  }
}

void WindowSketch::hero(const QRectF& area, double size) {
  QLinearGradient ground(area.topLeft(), area.bottomRight());
  ground.setColorAt(0, mixture(colours_.tint, QColor(Qt::white), .45));
  ground.setColorAt(1, mixture(colours_.tint, colours_.brand, .45));
  painter_.fillRect(area, ground);
  const QRectF tile(area.center() - QPointF(size / 2, size / 2), QSizeF(size, size));
  constexpr double kCorner = 0.225;
  for (const double spread : {.05, .04, .03, .02, .01})
    card(tile.adjusted(-size * spread, 0, size * spread, size * spread * 1.8), QColor(0, 0, 0, 9),
         size * (kCorner + spread));
  QPainterPath corners;
  corners.addRoundedRect(tile, size * kCorner, size * kCorner);
  painter_.save();
  painter_.setClipPath(corners, Qt::IntersectClip);
  paintGround(painter_, tile, design_);
  paintMotif(painter_, tile, design_);
  painter_.restore();
}

}  // namespace quillet::sandbox
