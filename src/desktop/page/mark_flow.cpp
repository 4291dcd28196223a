// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/mark_flow.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/marks.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

constexpr int kGap = 6;
constexpr double kStar = 11;
constexpr double kStarsGap = 6;
constexpr double kBareGap = 8;  // behind what is no pill, besides the usual gap
constexpr TypeStyle kRatingType = kSmallControlType.tabular();

PillKind pillKindOf(MarkKind kind) {
  switch (kind) {
    case MarkKind::plain: return PillKind::plain;
    case MarkKind::down: return PillKind::down;
    case MarkKind::up: return PillKind::up;
    case MarkKind::low: return PillKind::low;
    case MarkKind::fresh: return PillKind::fresh;
    case MarkKind::mine: return PillKind::mine;
    default: return PillKind::neutral;
  }
}

Pill pillOf(const PageMark& mark) { return {pillKindOf(mark.kind), mark.text, mark.icon}; }

bool isPill(const PageMark& mark) {
  return mark.kind != MarkKind::stars && mark.kind != MarkKind::aside;
}

double widthOf(Look& look, const PageMark& mark) {
  if (isPill(mark)) return pillWidth(look, pillOf(mark), PillSize::large);
  if (mark.kind == MarkKind::aside)
    return kBareGap + look.text.width(mark.text, kFactType.tabular());
  return kBareGap + starsWidth(kStar * look.growth()) + kStarsGap +
         look.text.width(mark.text, kRatingType);
}

void paintPillIn(QPainter& painter, Look& look, const PageMark& mark, int width) {
  Pill pill = pillOf(mark);
  const double excess = pillWidth(look, pill, PillSize::large) - width;
  if (excess > 0) {
    const double textWidth = look.text.width(pill.text, kPillType);
    pill.text = look.text.elided(pill.text, kPillType, textWidth - excess);
  }
  paintPill(painter, look, {0, 0}, pill, PillSize::large);
}

}  // namespace

MarkLabel::MarkLabel(const PageMark& mark, QWidget* parent) : QLabel(parent), mark_(mark) {
  setTextFormat(Qt::PlainText);
  setText(mark.spoken.isEmpty() ? mark.text : mark.spoken);
  if (!mark.tip.isEmpty()) setToolTip(wrappedTip(mark.tip));
  setAccessibleDescription(mark.tip);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize MarkLabel::sizeHint() const {
  return {static_cast<int>(std::ceil(widthOf(lookOf(*this), mark_))),
          static_cast<int>(std::ceil(pillHeight(lookOf(*this), PillSize::large)))};
}

QSize MarkLabel::minimumSizeHint() const { return {sizeHint().height(), sizeHint().height()}; }

void MarkLabel::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  if (isPill(mark_)) return paintPillIn(painter, look, mark_, width());
  QRectF line = QRectF(rect()).adjusted(0, 0, -kBareGap, 0);
  if (mark_.kind == MarkKind::aside) {
    look.text.drawElided(painter, {line}, mark_.text, kFactType.tabular(), look[Token::tertiary]);
    return;
  }
  const double star = kStar * look.growth();
  paintStars(painter, {0, (height() - star) / 2}, mark_.ratingHalves, star,
             {look[Token::rowStar], look[Token::emptyStar]});
  line.setLeft(line.left() + starsWidth(kStar * look.growth()) + kStarsGap);
  look.text.drawElided(painter, {line}, mark_.text, kRatingType, look[Token::secondary]);
}

template <typename Place>
int FlowLayout::flow(int width, Place place) const {
  QPoint at(0, 0);
  int height = 0;
  for (QLayoutItem* item : items()) {
    const QSize size(std::min(item->sizeHint().width(), width), item->sizeHint().height());
    if (at.x() > 0 && at.x() + size.width() > width) at = {0, height + kGap};
    place(item, QRect(at, size));
    height = at.y() + size.height();
    at.rx() += size.width() + kGap;
  }
  return height;
}

int FlowLayout::heightForWidth(int width) const {
  return flow(width, [](QLayoutItem* /*item*/, const QRect& /*rect*/) {});
}

QSize FlowLayout::sizeHint() const {
  constexpr int kUsualWidth = 480;
  return {kUsualWidth, heightForWidth(kUsualWidth)};
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const bool isMirrored = parentWidget()->isRightToLeft();
  flow(rect.width(), [&](QLayoutItem* item, QRect place) {
    if (isMirrored) place.moveLeft(rect.width() - place.left() - place.width());
    item->setGeometry(place.translated(rect.topLeft()));
  });
}

MarkFlow::MarkFlow(QWidget* parent) : QWidget(parent) { new FlowLayout(this); }

void MarkFlow::show(const std::vector<PageMark>& marks) {
  const bool isSame =
      std::ranges::equal(labels_, marks, {}, [](const MarkLabel* label) { return label->mark(); });
  if (isSame) return;
  for (MarkLabel* label : std::exchange(labels_, {})) delete label;
  for (const PageMark& mark : marks) {
    labels_.push_back(new MarkLabel(mark, this));
    layout()->addWidget(labels_.back());
    labels_.back()->setVisible(true);
  }
}

}  // namespace quillet
