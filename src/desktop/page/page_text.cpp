// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr int kNarrowest = 24;
constexpr int kUsualWidth = 480;

/// One text of several lines: a layout breaks lines at separators alone.
QString separated(QString text) {
  text.replace(QLatin1Char('\n'), QChar::LineSeparator);
  return text;
}

}  // namespace

PageText::PageText(const TextLook& look, QWidget* parent) : QLabel(parent), look_(look) {
  setTextFormat(Qt::PlainText);
  if (look_.use == TextUse::copy) {
    setCursor(Qt::IBeamCursor);
  } else {
    setContextMenuPolicy(Qt::NoContextMenu);
  }
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void PageText::setLines(int lines) {
  look_.lines = lines;
  laidWidth_ = -1;
  updateGeometry();
  update();
}

void PageText::show(const QString& text) {
  setVisible(!text.isEmpty());
  if (text == this->text()) return;
  setText(text);
  laidWidth_ = -1;
  select(0, 0);
  updateGeometry();
}

bool PageText::isCutAt(int width) const { return laidOut(width).isCut; }

QString PageText::selected() const {
  return text().mid(std::min(anchor_, cursor_), std::abs(anchor_ - cursor_));
}

QSize PageText::sizeHint() const {
  const Laid& laid = laidOut(kUsualWidth);
  return {static_cast<int>(std::ceil(laid.width)), heightForWidth(kUsualWidth)};
}

QSize PageText::minimumSizeHint() const {
  return {kNarrowest, static_cast<int>(std::ceil(lineHeight()))};
}

int PageText::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(laidOut(width).lines * lineHeight()));
}

double PageText::lineHeight() const { return look_.lineHeight * lookOf(*this).text.scale(); }

const PageText::Laid& PageText::laidOut(int width) const {
  if (laidWidth_ != width) {
    laid_ = layOut(width);
    laidWidth_ = width;
  }
  return laid_;
}

PageText::Laid PageText::layOut(int width) const {
  Laid laid;
  const TextPainter& painter = lookOf(*this).text;
  laid.layout = std::make_unique<QTextLayout>(separated(text()), painter.font(look_.type));
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  laid.layout->setTextOption(option);
  laid.layout->beginLayout();
  while (laid.lines < look_.lines) {
    QTextLine line = laid.layout->createLine();
    if (!line.isValid()) break;
    line.setLineWidth(std::max(kNarrowest, width));
    const double top = laid.lines * lineHeight();
    // Baselines on whole pixels, as of all texts that are painted.
    line.setPosition({0, painter.baseline(top, lineHeight(), look_.type) - line.ascent()});
    laid.width = std::max(laid.width, line.naturalTextWidth());
    ++laid.lines;
  }
  laid.layout->endLayout();
  if (laid.lines > 0) {
    const QTextLine last = laid.layout->lineAt(laid.lines - 1);
    laid.isCut = last.textStart() + last.textLength() < text().size();
  }
  return laid;
}

void PageText::paintEvent(QPaintEvent* /*event*/) {
  const Laid& laid = laidOut(width());
  Look& look = lookOf(*this);
  QPainter painter(this);
  const QColor& ink = look[look_.ink];
  painter.setPen(ink);
  QTextLayout::FormatRange selection;
  selection.start = std::min(anchor_, cursor_);
  selection.length = std::abs(anchor_ - cursor_);
  selection.format.setBackground(look[Token::selection]);
  // Of a text that is cut, the last line is drawn by itself.
  constexpr double kAbove = 0.5;
  const int whole = laid.isCut ? laid.lines - 1 : laid.lines;
  if (whole > 0) {
    laid.layout->draw(&painter, {0, 0}, formats() << selection,
                      QRectF(0, 0, width(), whole * lineHeight() - kAbove));
  }
  if (laid.isCut) paintCutLine(painter, laid, ink);
}

void PageText::paintCutLine(QPainter& painter, const Laid& laid, const QColor& ink) {
  const QTextLine line = laid.layout->lineAt(laid.lines - 1);
  const QRectF place(0, (laid.lines - 1) * lineHeight(), width(), lineHeight());
  const QString rest = text().mid(line.textStart(), line.textLength()).trimmed() + u'…';
  lookOf(*this).text.drawElided(painter, {place}, rest, look_.type, ink);
}

int PageText::positionAt(const QPoint& point) const {
  const Laid& laid = laidOut(width());
  if (laid.lines == 0) return 0;
  const int row = static_cast<int>(point.y() / lineHeight());
  return laid.layout->lineAt(std::clamp(row, 0, laid.lines - 1)).xToCursor(point.x());
}

int PageText::shownLength() const {
  const Laid& laid = laidOut(width());
  if (!laid.isCut) return static_cast<int>(text().size());
  return laid.layout->lineAt(laid.lines - 1).textStart();
}

std::optional<int> PageText::characterAt(const QPoint& point) const {
  const Laid& laid = laidOut(width());
  const int row = static_cast<int>(std::floor(point.y() / lineHeight()));
  if (row < 0 || row >= laid.lines) return {};
  const QTextLine line = laid.layout->lineAt(row);
  if (!line.naturalTextRect().contains(QPointF(point.x(), line.naturalTextRect().center().y())))
    return {};
  return line.xToCursor(point.x(), QTextLine::CursorOnCharacter);
}

void PageText::select(int from, int to) {
  anchor_ = from;
  cursor_ = to;
  QClipboard* clipboard = QGuiApplication::clipboard();
  if (clipboard->supportsSelection() && from != to)
    clipboard->setText(selected(), QClipboard::Selection);
  update();
}

void PageText::copy() const { QGuiApplication::clipboard()->setText(selected()); }

void PageText::mousePressEvent(QMouseEvent* event) {
  if (look_.use == TextUse::read) return event->ignore();
  if (event->button() != Qt::LeftButton) return;
  const int at = positionAt(event->pos());
  select(at, at);
}

void PageText::mouseMoveEvent(QMouseEvent* event) {
  if (look_.use == TextUse::read) return;
  if (event->buttons().testFlag(Qt::LeftButton)) select(anchor_, positionAt(event->pos()));
}

void PageText::mouseDoubleClickEvent(QMouseEvent* event) {
  if (look_.use == TextUse::read) return;
  QTextBoundaryFinder words(QTextBoundaryFinder::Word, text());
  words.setPosition(positionAt(event->pos()));
  if (!words.isAtBoundary()) words.toPreviousBoundary();
  const auto from = static_cast<int>(words.position());
  const auto to = static_cast<int>(words.toNextBoundary());
  if (to > from) select(from, to);
}

void PageText::contextMenuEvent(QContextMenuEvent* event) {
  if (anchor_ == cursor_) select(0, static_cast<int>(text().size()));
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(tr("Copy"), this, &PageText::copy);
  menu->popup(event->globalPos());
}

void PageText::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    laidWidth_ = -1;
    updateGeometry();
  }
}

}  // namespace quillet
