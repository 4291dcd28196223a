// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/state_line.h"

#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "desktop/lists/list_strip.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/wrapped_text.h"

namespace quillet {

namespace {

constexpr double kCorner = 8;
constexpr int kInset = 12;
constexpr int kInsetBesideButton = 4;
constexpr int kIcon = 14;
constexpr int kGap = 8;
constexpr int kAround = 9;  // above the text and below it
constexpr double kLine = 18;
constexpr TypeStyle kType{12.5, 400, 0, Digits::tabular};

WrappedText wrapped(const StripText& strip, int width, const Look& look) {
  return {strip.text, {kType, kLine}, width, look.text};
}

}  // namespace

StateLine::StateLine(Clock& clock, QWidget* parent)
    : QLabel(parent), clock_(clock), button_(new QPushButton(this)) {
  setTextFormat(Qt::PlainText);
  setButtonKind(*button_, ButtonKind::flat);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  connect(button_, &QPushButton::clicked, this, [this] { Q_EMIT acted(action_); });
  hide();
}

bool StateLine::show(const ListState& state) {
  const auto strip = stripOf(state, clock_.now());
  const auto before = stripOf(state_, {});
  const auto after = stripOf(state, {});
  state_ = state;
  // What goes on as it was is not told anew.
  if (strip && (!before || before->text != after->text || text().isEmpty())) setText(strip->text);
  if (!strip) setText({});
  action_ = strip ? strip->action : StripAction::none;
  button_->setText(textOf(action_));
  button_->setVisible(action_ != StripAction::none);
  setVisible(strip.has_value());
  placeButton();
  updateGeometry();
  keepPace();
  update();
  return strip.has_value();
}

QSize StateLine::sizeHint() const {
  constexpr int kUsual = 480;
  return {kUsual, heightForWidth(kUsual)};
}

/// The button stands at the end of a single line, or below several.
StateLine::Places StateLine::arrange(int width) const {
  const auto strip = stripOf(state_, clock_.now());
  if (!strip) return {};
  const Look& look = lookOf(*this);
  const int left = kInset + kIcon + kGap;
  const QSize button = button_->isHidden() ? QSize(0, 0) : button_->sizeHint();
  const int whole = std::max(1, width - left - kInset);
  const int beside = whole + kInset - kGap - button.width() - kInsetBesideButton;
  const bool isBeside =
      !button.isEmpty() && beside > 0 && wrapped(*strip, beside, look).lines() <= 1;
  const int textWidth = isBeside ? beside : whole;
  const int text = static_cast<int>(std::ceil(wrapped(*strip, textWidth, look).height()));
  Places places{{left, kAround, textWidth, text}, {}, text + 2 * kAround};
  if (button.isEmpty()) return places;
  const int buttonLine = kAround + text / 2;
  places.button = QRect(QPoint(width - kInsetBesideButton - button.width(),
                               isBeside ? buttonLine - button.height() / 2 : kAround + text),
                        button);
  if (!isBeside) places.height = places.button.bottom() + 1 + kInsetBesideButton;
  return places;
}

void StateLine::placeButton() {
  button_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), arrange(width()).button));
}

void StateLine::paintEvent(QPaintEvent* /*event*/) {
  const auto strip = stripOf(state_, clock_.now());
  if (!strip) return;
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isWarning = strip->tone == StripTone::warning;
  paintBox(painter, rect(), kCorner, look[isWarning ? Token::lowTint : Token::neutralTint]);
  Token mark = isWarning ? Token::low : Token::secondary;
  if (strip->isError) mark = Token::up;
  const QRect text = arrange(width()).text;
  const auto at = [&](const QRect& place) {
    return QStyle::visualRect(layoutDirection(), rect(), place);
  };
  const int line = static_cast<int>(kLine * look.text.scale());
  const QRect icon(kInset, text.top() + (line - kIcon) / 2, kIcon, kIcon);
  look.icons.draw(
      painter, at(icon).topLeft(),
      QString::fromLatin1(strip->icon.data(), static_cast<qsizetype>(strip->icon.size())), kIcon,
      look[mark]);
  wrapped(*strip, text.width(), look)
      .paint(painter, look, at(text).topLeft(), look[isWarning ? Token::low : Token::text]);
}

void StateLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  placeButton();
}

void StateLine::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() != QEvent::FontChange || button_ == nullptr) return;
  updateGeometry();
  placeButton();
}

void StateLine::keepPace() {
  const int pace = paceOf(state_);
  pace > 0 && isVisible() ? pace_.start(pace, this) : pace_.stop();
}

void StateLine::showEvent(QShowEvent* event) {
  QLabel::showEvent(event);
  keepPace();
}

void StateLine::hideEvent(QHideEvent* event) {
  QLabel::hideEvent(event);
  pace_.stop();
}

/// Only painted: a label's every other text would be read out.
void StateLine::timerEvent(QTimerEvent* /*event*/) {
  if (arrange(width()).height != height()) updateGeometry();
  update();
}

}  // namespace quillet
