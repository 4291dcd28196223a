// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/status_foot.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr int kHeight = 56;
constexpr int kInset = 16;
constexpr int kEdge = 1;  // the handle beside the sidebar, which counts as its own
constexpr int kTextLeft = 34;
constexpr int kLine = 16;
constexpr double kIcon = 12;
constexpr double kRailIcon = 16;

}  // namespace

StatusFoot::StatusFoot(Clock& clock, UtcOffsetAt zone, QWidget* parent)
    : QWidget(parent), clock_(clock), zone_(std::move(zone)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  minute_.setInterval(1min);
  minute_.setTimerType(Qt::VeryCoarseTimer);
  connect(&minute_, &QTimer::timeout, this, &StatusFoot::say);
  say();
}

void StatusFoot::setState(const CheckState& state) {
  state_ = state;
  say();
}

void StatusFoot::setRail(bool isRail) {
  isRail_ = isRail;
  updateGeometry();
  update();
}

QSize StatusFoot::sizeHint() const {
  if (isRail_) return {0, 40};
  return {0, kHeight + static_cast<int>(std::ceil(2 * kLine * (lookOf(*this).growth() - 1)))};
}

void StatusFoot::say() {
  words_ = wordsOf(state_, clock_.now(), zone_);
  const QString all = words_.second.isEmpty() ? words_.line : words_.line + u'\n' + words_.second;
  if (wrappedTip(all) != toolTip()) {
    setToolTip(wrappedTip(all));
    setAccessibleName(QString(all).replace(u'\n', QStringLiteral(", ")));
    setAccessibleDescription(accessibleName());  // else it would be the markup of the tip
  }
  update();
}

void StatusFoot::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  say();
  minute_.start();
}

void StatusFoot::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  minute_.stop();
}

void StatusFoot::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  if (isRail_) {
    look.icons.draw(painter, {(width() + kEdge - kRailIcon) / 2, 12}, words_.icon, kRailIcon,
                    look[words_.ink]);
    return;
  }
  PixelGrid(painter).horizontal(kInset, width() + kEdge - kInset, 0, look[Token::line]);
  paintLines(painter);
}

void StatusFoot::paintLines(QPainter& painter) const {
  constexpr double kFirst = 10;
  constexpr double kGap = 2;
  Look& look = lookOf(*this);
  const double line = kLine * look.growth();
  const double second = kFirst + line + kGap;
  const double right = width() + kEdge - kInset;
  look.icons.draw(painter, {kInset, kFirst + (line - kIcon) / 2}, words_.icon, kIcon,
                  look[words_.ink]);
  look.text.drawElided(painter, {QRectF(kTextLeft, kFirst, right - kTextLeft, line)}, words_.line,
                       kCaptionType, look[Token::secondary]);
  const double storefront = look.text.draw(
      painter, {QRectF(kTextLeft, second, right - kTextLeft, line), TextAnchor::right},
      state_.storefront, kCaptionType.weighing(500), look[Token::secondary]);
  const double room = right - kTextLeft - storefront - 8;
  if (words_.share) {
    const QRectF bar(kTextLeft, second + line / 2 - 2, room, 4);
    paintBox(painter, bar, 2, look[Token::emptyStar]);
    QRectF done = bar;
    done.setWidth(bar.width() * *words_.share);
    if (done.width() >= 4) paintBox(painter, done, 2, look[Token::accent]);
  } else {
    look.text.drawElided(painter, {QRectF(kTextLeft, second, room, line)}, words_.second,
                         kCaptionType.tabular(), look[Token::tertiary]);
  }
}

}  // namespace quillet
