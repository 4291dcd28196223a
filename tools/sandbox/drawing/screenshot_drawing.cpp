// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/screenshot_drawing.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "sandbox/drawing/window_sketch.h"

namespace quillet::sandbox {

namespace {

/// What a window shows; the rows below say how.
struct Scene {
  WindowTone tone;
  void (*draw)(WindowSketch& sketch, const QRectF& window);
};

QRectF inset(const QRectF& area, double by) { return area.adjusted(by, by, -by, -by); }

// On a screen that is wider than high.

void drawArticle(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = inset(sketch.band(window, 13), 10);
  const double column = page.width() * .42;
  sketch.picture({page.left(), page.top(), column, 36});
  const double right = page.left() + column + 6;
  sketch.text({right, page.top() + 1, page.right() - right, 36});
  sketch.paragraph({page.left(), page.top() + 42, page.width(), 16}, 3);
  sketch.paragraph({page.left(), page.top() + 59, page.width(), 12}, 2);
}

void drawDocument(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = inset(sketch.sidebar(window, window.width() * .29), 10);
  sketch.text({page.left(), page.top(), page.width(), page.height() * .6});
  const QRectF card(page.left(), page.top() + page.height() * .64, page.width() * .92,
                    page.height() * .34);
  sketch.card(card.adjusted(-.3, -.3, .3, .3), sketch.colours().tint, 3);
  sketch.card(card, sketch.colours().base, 2.7);
  sketch.paragraph(inset(card, 6), 4);
}

void drawGallery(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = inset(sketch.sidebar(window, window.width() * .2), 8);
  sketch.words(page.topLeft(), 30, 3.4, sketch.colours().strong);
  sketch.words({page.right() - 16, page.top()}, 16, 3.4, sketch.colours().brand);
  sketch.cards(page.adjusted(0, 10, 0, 0), 3, 2);
}

void drawFigures(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = inset(sketch.sidebar(window, window.width() * .22), 9);
  sketch.words(page.topLeft(), 28, 3.4, sketch.colours().strong);
  sketch.chart({page.left(), page.top() + 11, page.width(), page.height() * .42});
  const double top = page.top() + 18 + page.height() * .42;
  const double half = page.width() / 2 - 4;
  sketch.bars({page.left(), top, half, page.bottom() - top}, 9);
  sketch.rows({page.left() + half + 8, top, half, page.bottom() - top}, 3);
}

void drawFirstRun(WindowSketch& sketch, const QRectF& window) {
  const double pane = window.width() * .46;
  sketch.hero({window.topLeft(), QSizeF(pane, window.height())}, std::min(pane * .66, 52.0));
  const QRectF page = window.adjusted(pane + 12, window.height() * .3, -14, -10);
  sketch.words(page.topLeft(), page.width() * .8, 5, sketch.colours().strong);
  sketch.paragraph(page.adjusted(0, 11, 0, 0), 3);
  sketch.words({page.left(), page.top() + 31}, 24, 7, sketch.colours().brand);
}

constexpr std::array kWide{
    Scene{WindowTone::light, drawArticle},   Scene{WindowTone::tinted, drawDocument},
    Scene{WindowTone::dark, drawFigures},    Scene{WindowTone::light, drawGallery},
    Scene{WindowTone::tinted, drawFirstRun}, Scene{WindowTone::dark, drawDocument},
};

// On a telephone.

/// The bar at the foot, with four places to go to; returns what is left above.
QRectF aboveTabs(WindowSketch& sketch, const QRectF& window) {
  const double top = window.bottom() - 20;
  sketch.fill({window.left(), top, window.width(), 20}, sketch.colours().side);
  for (int i = 0; i < 4; ++i) {
    const double middle = window.left() + window.width() * (i + .5) / 4;
    const QColor& colour = i == 0 ? sketch.colours().brand : sketch.colours().line;
    sketch.card({middle - 2.7, top + 4, 5.4, 5.4}, colour, 1.6);
    sketch.words({middle - 4, top + 11.5}, 8, 1.6, colour);
  }
  return window.adjusted(0, 0, 0, -20);
}

QRectF belowTitle(WindowSketch& sketch, const QRectF& window) {
  sketch.words({window.left() + 7, window.top() + 17}, 46, 5, sketch.colours().strong);
  return window.adjusted(7, 30, -7, -6);
}

void drawFeed(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = inset(sketch.band(aboveTabs(sketch, window), 26), 7);
  sketch.picture({page.left(), page.top(), page.width(), 58});
  sketch.text({page.left(), page.top() + 66, page.width(), page.height() - 66});
}

void drawRows(WindowSketch& sketch, const QRectF& window) {
  sketch.rows(belowTitle(sketch, aboveTabs(sketch, window)), 8);
}

void drawTiles(WindowSketch& sketch, const QRectF& window) {
  sketch.cards(belowTitle(sketch, aboveTabs(sketch, window)), 2, 3);
}

void drawDay(WindowSketch& sketch, const QRectF& window) {
  const QRectF page = belowTitle(sketch, aboveTabs(sketch, window));
  sketch.chart({page.left(), page.top(), page.width(), 54});
  sketch.bars({page.left(), page.top() + 64, page.width(), 34}, 7);
  sketch.rows({page.left(), page.top() + 106, page.width(), page.height() - 106}, 3);
}

void drawWelcome(WindowSketch& sketch, const QRectF& window) {
  const double half = window.height() * .56;
  sketch.hero({window.topLeft(), QSizeF(window.width(), half)}, 68);
  const QRectF page = window.adjusted(11, half + 16, -11, -10);
  sketch.words(page.topLeft(), page.width() * .85, 6, sketch.colours().strong);
  sketch.paragraph(page.adjusted(0, 13, 0, 0), 4);
  sketch.words({page.left(), page.bottom() - 16}, page.width(), 13, sketch.colours().brand);
}

constexpr std::array kUpright{
    Scene{WindowTone::light, drawFeed},     Scene{WindowTone::tinted, drawRows},
    Scene{WindowTone::tinted, drawWelcome}, Scene{WindowTone::dark, drawDay},
    Scene{WindowTone::light, drawTiles},
};

template <std::size_t N>
const Scene& sceneOf(const std::array<Scene, N>& scenes, const Subject& subject, int number) {
  return scenes[(subject.key % N + static_cast<std::size_t>(number)) % N];
}

}  // namespace

QImage drawScreenshot(const Subject& subject, int number, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  const bool isUpright = size.height() > size.width();
  const Scene& scene =
      isUpright ? sceneOf(kUpright, subject, number) : sceneOf(kWide, subject, number);
  const double unit = (isUpright ? size.width() : size.height()) / 100.0;
  painter.scale(unit, unit);
  const IconDesign design = designOf(subject);
  WindowSketch sketch(painter, design, scene.tone,
                      subject.key + static_cast<std::uint64_t>(number) * 977);
  const QRectF window(0, 0, size.width() / unit, size.height() / unit);
  sketch.fill(window, sketch.colours().base);
  scene.draw(sketch, window);
  return image;
}

QImage drawStory(const Subject& subject, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  const IconDesign design = designOf(subject);
  WindowSketch sketch(painter, design, WindowTone::light, subject.key);
  const double large = size.height() * .56;
  sketch.hero(QRectF(QPointF(), QSizeF(size)), large);
  return image;
}

}  // namespace quillet::sandbox
