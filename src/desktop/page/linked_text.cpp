// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/linked_text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "base/urls.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

bool mayBelong(QChar c) {
  return !c.isSpace() && c.isPrint() && !QStringLiteral("<>\"“”‘’«»").contains(c);
}

/// Without a sentence's end, and without a bracket that was opened before the address.
int endOf(const QString& text, int start, int end) {
  while (end > start) {
    const QChar last = text[end - 1];
    const QStringView link = QStringView(text).mid(start, end - start);
    const bool isStray = (last == u')' && link.count(u')') > link.count(u'(')) ||
                         (last == u']' && link.count(u']') > link.count(u'['));
    if (!isStray && !QStringLiteral(".,;:!?'…").contains(last)) break;
    --end;
  }
  return end;
}

}  // namespace

std::vector<TextLink> webLinksIn(const QString& text) {
  std::vector<TextLink> links;
  const auto size = static_cast<int>(text.size());
  for (int at = 0; at < size;) {
    const auto start = static_cast<int>(text.indexOf(QLatin1String("http"), at));
    if (start < 0) break;
    int end = start;
    while (end < size && mayBelong(text[end])) ++end;
    end = endOf(text, start, end);
    const bool isOwnWord = start == 0 || !text[start - 1].isLetterOrNumber();
    const bool isLink = isOwnWord && isWebAddress(text.mid(start, end - start).toStdString());
    if (isLink) links.push_back({start, end - start});
    at = isLink ? end : start + 1;
  }
  return links;
}

LinkedText::LinkedText(const TextLook& look, QWidget* parent) : PageText(look, parent) {
  setMouseTracking(true);
}

void LinkedText::show(const QString& text) {
  if (text != this->text()) {
    links_ = webLinksIn(text);
    pressed_.reset();
    choose(std::nullopt);
    setFocusPolicy(links_.empty() ? Qt::NoFocus : Qt::TabFocus);
  }
  PageText::show(text);
}

/// Those in the lines that are drawn whole.
std::vector<TextLink> LinkedText::seenLinks() const {
  std::vector<TextLink> seen = links_;
  const int end = shownLength();
  std::erase_if(seen, [end](const TextLink& link) { return link.start + link.length > end; });
  return seen;
}

QList<QTextLayout::FormatRange> LinkedText::formats() const {
  QList<QTextLayout::FormatRange> ranges;
  for (const TextLink& link : seenLinks()) {
    QTextLayout::FormatRange range;
    range.start = link.start;
    range.length = link.length;
    const Look& look = lookOf(*this);
    range.format.setForeground(look[Token::accentText]);
    if (chosen_ == link) {
      range.format.setFontUnderline(true);
      range.format.setBackground(look[Token::selection]);
    }
    ranges.push_back(range);
  }
  return ranges;
}

QString LinkedText::textOf(const TextLink& link) const {
  return text().mid(link.start, link.length);
}

std::optional<TextLink> LinkedText::linkAt(const QPoint& point) const {
  const std::optional<int> at = characterAt(point);
  if (!at) return {};
  for (const TextLink& link : seenLinks())
    if (*at >= link.start && *at < link.start + link.length) return link;
  return {};
}

void LinkedText::open(const TextLink& link) { Q_EMIT opens(textOf(link).toStdString()); }

void LinkedText::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? linkAt(event->pos()) : std::nullopt;
  PageText::mousePressEvent(event);
}

void LinkedText::mouseMoveEvent(QMouseEvent* event) {
  setCursor(linkAt(event->pos()) ? Qt::PointingHandCursor : Qt::IBeamCursor);
  PageText::mouseMoveEvent(event);
}

/// What was pulled over is selected, not followed.
void LinkedText::mouseReleaseEvent(QMouseEvent* event) {
  PageText::mouseReleaseEvent(event);
  const auto pressed = std::exchange(pressed_, std::nullopt);
  if (pressed && selected().isEmpty() && linkAt(event->pos()) == pressed) open(*pressed);
}

void LinkedText::choose(std::optional<TextLink> link) {
  chosen_ = link;
  setAccessibleDescription(link ? tr("Link to %1").arg(textOf(*link)) : QString());
  update();
}

void LinkedText::keyPressEvent(QKeyEvent* event) {
  const bool isBack = event->key() == Qt::Key_Left;
  const bool isMove = isBack || event->key() == Qt::Key_Right;
  if (chosen_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    return open(*chosen_);
  const std::vector<TextLink> seen = seenLinks();
  if (!isMove || seen.empty()) return PageText::keyPressEvent(event);
  const auto at = chosen_ ? std::ranges::find(seen, *chosen_) : seen.end();
  if (at == seen.end()) return choose(seen.front());
  if (isBack && at != seen.begin()) choose(*(at - 1));
  if (!isBack && at + 1 != seen.end()) choose(*(at + 1));
}

void LinkedText::focusInEvent(QFocusEvent* event) {
  PageText::focusInEvent(event);
  const std::vector<TextLink> seen = seenLinks();
  if (!chosen_ && !seen.empty() && event->reason() != Qt::MouseFocusReason) choose(seen.front());
}

void LinkedText::focusOutEvent(QFocusEvent* event) {
  PageText::focusOutEvent(event);
  choose(std::nullopt);
}

}  // namespace quillet
