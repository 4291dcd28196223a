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

constexpr int kStressed = 600;  // a font's weight
constexpr int kNarrowest = 24;
constexpr int kUsualWidth = 480;

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
  stressLength_ = 0;
  laidWidth_ = -1;
  select(0, 0);
  updateGeometry();
}

void PageText::stress(qsizetype start, qsizetype length) {
  stressStart_ = static_cast<int>(start);
  stressLength_ = start < 0 ? 0 : static_cast<int>(length);
  laidWidth_ = -1;
  updateGeometry();
  update();
}

bool PageText::isCutAt(int width) const { return laidOut(width).isCut(); }

QString PageText::selected() const {
  return text().mid(std::min(anchor_, cursor_), std::abs(anchor_ - cursor_));
}

QSize PageText::sizeHint() const {
  return {static_cast<int>(std::ceil(laidOut(kUsualWidth).width())), heightForWidth(kUsualWidth)};
}

QSize PageText::minimumSizeHint() const {
  return {kNarrowest, static_cast<int>(std::ceil(lineHeight()))};
}

int PageText::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(laidOut(width).height()));
}

double PageText::lineHeight() const { return look_.lineHeight * lookOf(*this).text.scale(); }

const WrappedText& PageText::laidOut(int width) const {
  if (laidWidth_ != width) {
    const WrappedStyle style{look_.type, look_.lineHeight, look_.lines};
    laid_ = WrappedText(text(), style, width, lookOf(*this).text, stressed());
    laidWidth_ = width;
  }
  return laid_;
}

TextFormats PageText::stressed() const {
  if (stressLength_ == 0) return {};
  QTextLayout::FormatRange part;
  part.start = stressStart_;
  part.length = stressLength_;
  part.format.setFontWeight(kStressed);
  return {part};
}

void PageText::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  QTextLayout::FormatRange selection;
  selection.start = std::min(anchor_, cursor_);
  selection.length = std::abs(anchor_ - cursor_);
  selection.format.setBackground(look[Token::selection]);
  TextFormats parts = stressed();
  for (QTextLayout::FormatRange& part : parts) part.format.setForeground(look[Token::text]);
  laidOut(width()).paint(painter, look, {0, 0}, look[look_.ink], parts + formats() << selection);
}

int PageText::positionAt(const QPoint& point) const { return laidOut(width()).positionAt(point); }

int PageText::shownLength() const { return laidOut(width()).shownLength(); }

std::optional<int> PageText::characterAt(const QPoint& point) const {
  return laidOut(width()).characterAt(point);
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
