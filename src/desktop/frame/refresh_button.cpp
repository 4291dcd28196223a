// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/refresh_button.h"

#include <QPainter>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kStep = 60ms;
constexpr int kStepDegrees = 30;
constexpr double kRadius = 6.5;

}  // namespace

RefreshButton::RefreshButton(QWidget* parent) : QToolButton(parent) {
  setIconName(*this, QStringLiteral("arrow-clockwise"));
  turn_.setInterval(kStep);
  connect(&turn_, &QTimer::timeout, this, [this] {
    turned_ = (turned_ + kStepDegrees) % 360;
    update();
  });
}

void RefreshButton::setBusy(bool isBusy) {
  if (isBusy_ == isBusy) return;
  isBusy_ = isBusy;
  isBusy&& isVisible() ? turn() : turn_.stop();
  update();
}

/// Where motion is not wanted the ring stands: that it is there says enough.
void RefreshButton::turn() {
  if (lookOf(*this).motion == Motion::full) turn_.start();
}

void RefreshButton::showEvent(QShowEvent* event) {
  QToolButton::showEvent(event);
  if (isBusy_) turn();
}

void RefreshButton::hideEvent(QHideEvent* event) {
  QToolButton::hideEvent(event);
  turn_.stop();
}

void RefreshButton::paintEvent(QPaintEvent* event) {
  if (!isBusy_) {
    QToolButton::paintEvent(event);
    return;
  }
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF middle = QRectF(rect()).center();
  const QRectF ring(middle - QPointF(kRadius, kRadius), QSizeF(2 * kRadius, 2 * kRadius));
  painter.setPen(QPen(look[Token::emptyStar], 2));
  painter.drawEllipse(ring);
  painter.setPen(QPen(look[Token::accentText], 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(ring, (90 - turned_) * 16, -90 * 16);
}

}  // namespace quillet
