// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/wrapped_text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace quillet {

namespace {

constexpr int kNarrowest = 24;

/// One text of several lines: a layout breaks lines at separators alone.
QString separated(QString text) {
  text.replace(QLatin1Char('\n'), QChar::LineSeparator);
  return text;
}

/// As much of the text as so many lines can hold, and a little more: letters without a width are no
/// reason to set all of an endless text.
QString beginning(const QString& text, int lines, int width) {
  constexpr int kNarrowLetter = 2;
  const qsizetype most = static_cast<qsizetype>(lines) * (width / kNarrowLetter + 1);
  return separated(text.left(most));
}

}  // namespace

WrappedText::WrappedText(const QString& text, const WrappedStyle& style, int width,
                         const TextPainter& painter, const TextFormats& parts)
    : layout_(std::make_unique<QTextLayout>(
          beginning(text, style.lines, std::max(kNarrowest, width)), painter.font(style.type))),
      type_(style.type),
      lineHeight_(style.lineHeight * painter.scale()),
      setWidth_(std::max(kNarrowest, width)) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout_->setTextOption(option);
  layout_->setFormats(parts);
  layout_->beginLayout();
  while (lines_ < style.lines) {
    QTextLine line = layout_->createLine();
    if (!line.isValid()) break;
    line.setLineWidth(setWidth_);
    const double top = lines_ * lineHeight_;
    // Baselines on whole pixels, as of all texts that are painted.
    line.setPosition({0, painter.baseline(top, lineHeight_, type_) - line.ascent()});
    longest_ = std::max(longest_, line.naturalTextWidth());
    ++lines_;
  }
  layout_->endLayout();
  if (lines_ == 0) return;
  const QTextLine last = layout_->lineAt(lines_ - 1);
  isCut_ = last.textStart() + last.textLength() < text.size();
}

int WrappedText::positionAt(const QPointF& point) const {
  if (lines_ == 0) return 0;
  const int row = static_cast<int>(point.y() / lineHeight_);
  return layout_->lineAt(std::clamp(row, 0, lines_ - 1)).xToCursor(point.x());
}

std::optional<int> WrappedText::characterAt(const QPointF& point) const {
  const int row = static_cast<int>(std::floor(point.y() / lineHeight_));
  if (row < 0 || row >= lines_) return {};
  const QTextLine line = layout_->lineAt(row);
  if (!line.naturalTextRect().contains(QPointF(point.x(), line.naturalTextRect().center().y())))
    return {};
  return line.xToCursor(point.x(), QTextLine::CursorOnCharacter);
}

int WrappedText::shownLength() const {
  if (lines_ == 0) return 0;
  const QTextLine last = layout_->lineAt(lines_ - 1);
  return isCut_ ? last.textStart() : last.textStart() + last.textLength();
}

void WrappedText::paint(QPainter& painter, Look& look, const QPointF& corner, const QColor& ink,
                        const TextFormats& formats) const {
  if (lines_ == 0) return;
  painter.setPen(ink);
  // Of a text that is cut, the last line is drawn by itself.
  constexpr double kAbove = 0.5;
  const int whole = isCut_ ? lines_ - 1 : lines_;
  if (whole > 0) {
    const QRectF clip(corner, QSizeF(setWidth_, whole * lineHeight_ - kAbove));
    layout_->draw(&painter, corner, formats, clip);
  }
  if (isCut_) paintCutLine(painter, look, corner, ink);
}

void WrappedText::paintCutLine(QPainter& painter, Look& look, const QPointF& corner,
                               const QColor& ink) const {
  const QTextLine line = layout_->lineAt(lines_ - 1);
  const QRectF place(corner + QPointF(0, (lines_ - 1) * lineHeight_),
                     QSizeF(setWidth_, lineHeight_));
  const QString rest = layout_->text().mid(line.textStart(), line.textLength()).trimmed() + u'…';
  look.text.drawElided(painter, {place}, rest, type_, ink);
}

}  // namespace quillet
