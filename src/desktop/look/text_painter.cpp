// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/text_painter.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <memory>

#include "desktop/look/tabular_digits.h"

namespace quillet {

namespace {

constexpr int kKeptTexts = 2000;  // some screens full; each takes half a kilobyte and more
constexpr double kSmallestDisplayPixels = 20;
// Wide enough for every text that fits on a screen.
constexpr double kOneLine = 1e6;

QString installedOr(const QString& family, const QString& other) {
  return QFontDatabase::hasFamily(family) ? family : other;
}

// A size that was divided by the scale is a whole one again.
constexpr double kRounding = 1e-6;

double wholePixels(double pixels) { return std::ceil(pixels - kRounding); }

/// The same text without what would begin a line or hide in it.
QString singleLine(QString text) {
  for (QChar& c : text) {
    if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
        c == QChar::ParagraphSeparator) {
      c = u' ';
    }
  }
  return text;
}

struct Extent {
  double left = 0;
  double right = 0;
};

/// What glyphs cover. Where texts of both directions meet, neither end of the text need be an end
/// of the line.
Extent extentOf(const QList<QGlyphRun>& runs) {
  QRectF covered;
  for (const QGlyphRun& run : runs) covered |= run.boundingRect();
  return {covered.left(), covered.right()};
}

QString nameOf(const QRawFont& font) {
  return font.familyName() + u'/' + font.styleName() + u'/' + QString::number(font.weight());
}

}  // namespace

TextPainter::TextPainter(double scale)
    : scale_(scale),
      family_(installedOr(QStringLiteral("Inter"), QFont().family())),
      displayFamily_(installedOr(QStringLiteral("Inter Display"), family_)),
      cache_(kKeptTexts) {}

void TextPainter::setScale(double scale) {
  scale_ = scale;
  cache_.clear();
}

QFont TextPainter::font(const TypeStyle& style) const {
  const double pixels = style.pixels * scale_;
  const double whole = wholePixels(pixels);
  QFont font(style.pixels >= kSmallestDisplayPixels ? displayFamily_ : family_);
  font.setPixelSize(static_cast<int>(whole));
  font.setWeight(static_cast<QFont::Weight>(style.weight));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(
      static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  if (style.spacing != 0) {
    font.setLetterSpacing(QFont::AbsoluteSpacing, style.spacing * scale_ * whole / pixels);
  }
  return font;
}

double TextPainter::width(const QString& text, const TypeStyle& style) {
  return shaped(text, style).width;
}

QString TextPainter::elided(const QString& text, const TypeStyle& style, double width) {
  if (this->width(text, style) <= width) return text;
  const auto cut = [&](qsizetype length) { return text.left(length).trimmed() + u'…'; };
  qsizetype fits = 0;
  qsizetype tooLong = text.size();
  while (tooLong - fits > 1) {
    const qsizetype middle = (fits + tooLong) / 2;
    (this->width(cut(middle), style) <= width ? fits : tooLong) = middle;
  }
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
  characters.setPosition(fits);
  if (!characters.isAtBoundary()) characters.toPreviousBoundary();
  return cut(characters.position());
}

double TextPainter::draw(QPainter& painter, const TextPlace& place, const QString& text,
                         const TypeStyle& style, const QColor& color) {
  const Shaped& shape = shaped(text, style);
  double x = place.line.left();
  if (place.anchor == TextAnchor::right) x = place.line.right() - shape.width;
  if (place.anchor == TextAnchor::centre) x = place.line.center().x() - shape.width / 2;
  const QPointF start(x, baseline(place.line.top(), place.line.height(), style));
  painter.setPen(color);
  for (const QGlyphRun& run : shape.runs) painter.drawGlyphRun(start, run);
  return shape.width;
}

double TextPainter::drawElided(QPainter& painter, const TextPlace& place, const QString& text,
                               const TypeStyle& style, const QColor& color) {
  return draw(painter, place, elided(text, style, place.line.width()), style, color);
}

double TextPainter::baseline(double top, double height, const TypeStyle& style) const {
  const QFont whole = font(style);
  const QFontMetricsF metrics(whole);
  const double share = style.pixels * scale_ / whole.pixelSize();
  const double ascent = std::round(metrics.ascent() * share);
  const double descent = std::round(metrics.descent() * share);
  return std::floor(top + std::floor((height - ascent - descent) / 2)) + ascent;
}

const TextPainter::Shaped& TextPainter::shaped(const QString& text, const TypeStyle& style) {
  const Key key{text, style};
  if (const Shaped* kept = cache_.object(key)) return *kept;
  auto* made = shape(singleLine(text), style).release();
  cache_.insert(key, made);
  return *made;
}

std::unique_ptr<TextPainter::Shaped> TextPainter::shape(const QString& text,
                                                        const TypeStyle& style) {
  const double pixels = style.pixels * scale_;
  const double share = pixels / wholePixels(pixels);
  QTextLayout layout(text, font(style));
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (line.isValid()) line.setLineWidth(kOneLine);
  layout.endLayout();

  auto shape = std::make_unique<Shaped>();
  if (!line.isValid()) return shape;
  shape->runs = layout.glyphRuns();
  // Where texts of both directions meet, places are the layout's alone to give.
  const bool isLeftToRight =
      std::ranges::none_of(shape->runs, [](const QGlyphRun& run) { return run.isRightToLeft(); });
  Extent extent{line.cursorToX(0), line.cursorToX(static_cast<int>(text.size()))};
  if (!isLeftToRight) extent = extentOf(shape->runs);
  shape->width = extent.right - extent.left;
  double shift = 0;
  for (QGlyphRun& run : shape->runs) {
    QList<QPointF> positions = run.positions();
    for (QPointF& position : positions) position.rx() += shift;
    run.setPositions(positions);
    if (style.digits == Digits::tabular && isLeftToRight) {
      shift += makeTabular(run, style.spacing * scale_ / share);
    }
    positions = run.positions();
    // Glyph runs stand below the layout's top; what is drawn stands on a baseline.
    for (QPointF& position : positions) position = QPointF((position.x() - extent.left) * share, 0);
    run.setPositions(positions);
    if (share != 1) run.setRawFont(sized(run.rawFont(), pixels));
  }
  shape->width = (shape->width + shift) * share;
  return shape;
}

QRawFont TextPainter::sized(const QRawFont& font, double pixels) {
  const QString name = nameOf(font) + u'/' + QString::number(pixels);
  const auto kept = fonts_.constFind(name);
  if (kept != fonts_.cend()) return *kept;
  QRawFont made = font;
  made.setPixelSize(pixels);
  fonts_.insert(name, made);
  return made;
}

const QHash<quint32, quint32>& TextPainter::tabularGlyphsOf(const QRawFont& font) {
  const QString name = nameOf(font);
  auto kept = tabular_.find(name);
  if (kept == tabular_.end()) kept = tabular_.insert(name, tabularGlyphs(font.fontTable("GSUB")));
  return *kept;
}

/// Puts the digits of equal width in; returns by how much the run grew.
double TextPainter::makeTabular(QGlyphRun& run, double spacing) {
  const QHash<quint32, quint32>& others = tabularGlyphsOf(run.rawFont());
  const QList<quint32> before = run.glyphIndexes();
  QList<quint32> after = before;
  for (quint32& glyph : after) glyph = others.value(glyph, glyph);
  if (after == before) return 0;
  const QRawFont font = run.rawFont();
  const auto oldAdvances = font.advancesForGlyphIndexes(before, QRawFont::SeparateAdvances);
  const auto newAdvances = font.advancesForGlyphIndexes(after, QRawFont::SeparateAdvances);
  const QList<QPointF> old = run.positions();
  QList<QPointF> positions = old;
  const qsizetype last = after.size() - 1;
  for (qsizetype i = 0; i < last; ++i) {
    // Kerning holds between glyphs that stayed; beside another one it would be wrong.
    const bool stayed = after[i] == before[i] && after[i + 1] == before[i + 1];
    const double advance = stayed ? old[i + 1].x() - old[i].x() : newAdvances[i].x() + spacing;
    positions[i + 1].setX(positions[i].x() + advance);
  }
  run.setGlyphIndexes(after);
  run.setPositions(positions);
  return positions[last].x() - old[last].x() + newAdvances[last].x() - oldAdvances[last].x();
}

}  // namespace quillet
