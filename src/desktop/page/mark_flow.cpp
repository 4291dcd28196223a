// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/mark_flow.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/focus_ring.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/page/mark_popover.h"

namespace quillet {

namespace {

constexpr int kGap = 6;
constexpr double kStar = 11;
constexpr double kStarsGap = 6;
constexpr double kBareGap = 8;     // behind what is no pill, besides the usual gap
constexpr float kHovered = 0.08F;  // of the text's colour over a button
constexpr float kPressed = 0.16F;
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

QSize sizeOf(Look& look, const PageMark& mark) {
  return {static_cast<int>(std::ceil(widthOf(look, mark))),
          static_cast<int>(std::ceil(pillHeight(look, PillSize::large)))};
}

QString spokenOf(const PageMark& mark) { return mark.spoken.isEmpty() ? mark.text : mark.spoken; }

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

MarkLabel::MarkLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MarkLabel::show(const PageMark& mark) {
  mark_ = mark;
  setText(spokenOf(mark));
  setToolTip(mark.tip.isEmpty() ? QString() : wrappedTip(mark.tip));
  setAccessibleDescription(mark.tip);
  updateGeometry();
  update();
}

QSize MarkLabel::sizeHint() const { return sizeOf(lookOf(*this), mark_); }

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

MarkButton::MarkButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QAbstractButton::clicked, this, &MarkButton::open);
}

void MarkButton::show(const PageMark& mark) {
  mark_ = mark;
  setAccessibleName(spokenOf(mark));
  setToolTip(mark.tip.isEmpty() ? QString() : wrappedTip(mark.tip));
  setRingCorner(*this, static_cast<double>(sizeHint().height()) / 2);
  updateGeometry();
  update();
}

QSize MarkButton::sizeHint() const { return sizeOf(lookOf(*this), mark_); }

QSize MarkButton::minimumSizeHint() const { return {sizeHint().height(), sizeHint().height()}; }

void MarkButton::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  paintPillIn(painter, look, mark_, width());
  if (!underMouse() && !isDown()) return;
  QColor veil = look[Token::text];
  veil.setAlphaF(isDown() ? kPressed : kHovered);
  paintBox(painter, rect(), height() / 2.0, veil);
}

void MarkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

void MarkButton::open() {
  if (mark_.details) (new MarkPopover(*mark_.details, this))->openBelow(*this);
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

/// What stays of a kind stays itself: somebody may be at it.
void MarkFlow::show(const std::vector<PageMark>& marks) {
  std::size_t same = 0;
  const auto fits = [&](std::size_t i) {
    return i < marks.size() && marks[i].details.has_value() == shown_[i].details.has_value();
  };
  while (same < shown_.size() && fits(same)) ++same;
  for (; views_.size() > same; views_.pop_back()) delete views_.back();
  for (std::size_t i = same; i < marks.size(); ++i) makeView(marks[i]);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    if (i < same && marks[i] == shown_[i]) continue;
    if (auto* button = qobject_cast<MarkButton*>(views_[i])) button->show(marks[i]);
    if (auto* label = qobject_cast<MarkLabel*>(views_[i])) label->show(marks[i]);
  }
  shown_ = marks;
}

void MarkFlow::makeView(const PageMark& mark) {
  QWidget* view = nullptr;
  if (mark.details) {
    view = new MarkButton(this);
  } else {
    view = new MarkLabel(this);
  }
  views_.push_back(view);
  layout()->addWidget(view);
  view->setVisible(true);
}

}  // namespace quillet
