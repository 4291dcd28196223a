// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/switch.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "desktop/look/style_parts.h"

namespace quillet {

namespace {

constexpr QSize kKnobAndTrack(36, 20);
constexpr int kRing = 3;

}  // namespace

Switch::Switch(const QString& name, QWidget* parent) : QAbstractButton(parent) {
  setAccessibleName(name);
  setCheckable(true);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const { return kKnobAndTrack + QSize(2 * kRing, 2 * kRing); }

void Switch::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  option.initFrom(this);
  if (isDown()) option.state |= QStyle::State_Sunken;
  if (isChecked()) option.state |= QStyle::State_On;
  QPainter painter(this);
  const QRectF track(QPointF(kRing, (height() - kKnobAndTrack.height()) / 2.0), kKnobAndTrack);
  parts::paintSwitch(painter, lookOf(*this), track, parts::stateOf(option));
}

}  // namespace quillet
