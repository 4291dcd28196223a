// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/icon_drawing.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include "sandbox/drawing/path_reader.h"

namespace quillet::sandbox {

namespace {

constexpr double kSide = 100;  // of the square that motifs are laid out on
constexpr double kShadowDepth = 1.7;
constexpr double kShadowOpacity = 0.28;

QBrush fromTopTo(Ink top, Ink bottom, double first, double last) {
  QLinearGradient gradient(0, first, 0, last);
  gradient.setColorAt(0, QColor::fromRgba(top));
  gradient.setColorAt(1, QColor::fromRgba(bottom));
  return gradient;
}

QBrush brushOf(Ink ink, const Palette& palette) {
  switch (ink) {
    case kGlyph: return fromTopTo(palette.glyphTop, palette.glyphBottom, 18, 82);
    case kSoft: return QColor::fromRgba(palette.soft);
    case kAccent: return QColor::fromRgba(palette.accent);
    case kDeep: return QColor::fromRgba(palette.deep);
    default: return QColor::fromRgba(ink);
  }
}

/// Lets the painter paint on a square of a hundred by a hundred until it is done with that.
class Unit {
 public:
  Unit(QPainter& painter, const QRectF& square) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.translate(square.topLeft());
    painter_.scale(square.width() / kSide, square.height() / kSide);
    painter_.setClipRect(QRectF(0, 0, kSide, kSide), Qt::IntersectClip);
  }
  ~Unit() { painter_.restore(); }
  Unit(const Unit&) = delete;
  Unit& operator=(const Unit&) = delete;

 private:
  QPainter& painter_;
};

void paintOutline(QPainter& painter, const Shape& shape, const QBrush& brush, double opacity) {
  const QPainterPath outline = outlineOf(shape.outline);
  painter.save();
  painter.translate(kSide / 2, kSide / 2);
  painter.rotate(shape.turn);
  painter.translate(-kSide / 2, -kSide / 2);
  painter.setOpacity(shape.opacity * opacity);
  if (shape.pen > 0)
    painter.strokePath(outline, QPen(brush, shape.pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  else
    painter.fillPath(outline, brush);
  painter.restore();
}

/// On a coloured ground, what lies on it throws a little shadow.
void paintShadows(QPainter& painter, const IconDesign& design) {
  if (design.palette->tone != Tone::vivid) return;
  const QColor deep = QColor::fromRgba(design.palette->deep);
  painter.save();
  painter.translate(0, kShadowDepth);
  for (const Shape& shape : design.motif->shapes) {
    if (shape.outline.empty()) break;
    if (shape.ink == kGlyph && shape.opacity == 1)
      paintOutline(painter, shape, deep, kShadowOpacity);
  }
  painter.restore();
}

void paintBackdrop(QPainter& painter, Backdrop backdrop, const Palette& palette) {
  const auto tinted = [](Ink ink, double alpha) {
    QColor colour = QColor::fromRgba(ink);
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
  };
  switch (backdrop) {
    case Backdrop::plain: break;
    case Backdrop::hills:
      painter.fillPath(outlineOf("M0 80C30 66 62 86 100 70V100H0Z"), tinted(palette.deep, .38));
      break;
    case Backdrop::disc:
      painter.fillPath(outlineOf("O50 110 66"), tinted(palette.soft, .22));
      break;
    case Backdrop::glow: {
      QRadialGradient glow(50, 34, 62);
      glow.setColorAt(0, QColor(255, 255, 255, 70));
      glow.setColorAt(1, QColor(255, 255, 255, 0));
      painter.fillRect(QRectF(0, 0, kSide, kSide), glow);
      break;
    }
    case Backdrop::sheen:
      painter.fillPath(outlineOf("M0 0H100L0 100Z"), QColor(255, 255, 255, 24));
      break;
    case Backdrop::rings:
      painter.fillPath(outlineOf("WO50 50 45"), QColor(255, 255, 255, 22));
      painter.fillPath(outlineOf("WO50 50 32"), QColor(255, 255, 255, 26));
      break;
  }
}

}  // namespace

void paintGround(QPainter& painter, const QRectF& square, const IconDesign& design) {
  const Unit unit(painter, square);
  const Palette& palette = *design.palette;
  painter.fillRect(QRectF(0, 0, kSide, kSide), fromTopTo(palette.top, palette.bottom, 0, kSide));
  paintBackdrop(painter, design.backdrop, palette);
}

void paintMotif(QPainter& painter, const QRectF& square, const IconDesign& design) {
  const Unit unit(painter, square);
  paintShadows(painter, design);
  for (const Shape& shape : design.motif->shapes) {
    if (shape.outline.empty()) break;
    paintOutline(painter, shape, brushOf(shape.ink, *design.palette), 1);
  }
}

QImage drawIcon(const Subject& subject, int side) {
  QImage image(side, side, QImage::Format_RGB32);
  QPainter painter(&image);
  const IconDesign design = designOf(subject);
  paintGround(painter, image.rect(), design);
  paintMotif(painter, image.rect(), design);
  return image;
}

QImage drawBundleIcon(const std::vector<Subject>& apps, int side) {
  QImage image(side, side, QImage::Format_RGB32);
  image.fill(QColor(0xE4, 0xE7, 0xEE));
  QPainter painter(&image);
  constexpr double kInset = 0.12;
  constexpr double kIcon = 0.35;
  for (std::size_t i = 0; i < std::min<std::size_t>(apps.size(), 4); ++i) {
    const double left = side * (i % 2 == 0 ? kInset : 1 - kInset - kIcon);
    const double top = side * (i < 2 ? kInset : 1 - kInset - kIcon);
    const QRectF square(left, top, side * kIcon, side * kIcon);
    QPainterPath corners;
    corners.addRoundedRect(square, square.width() * 0.225, square.width() * 0.225);
    painter.setClipPath(corners);
    const IconDesign design = designOf(apps[i]);
    paintGround(painter, square, design);
    paintMotif(painter, square, design);
  }
  return image;
}

}  // namespace quillet::sandbox
