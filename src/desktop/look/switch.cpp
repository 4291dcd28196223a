// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/switch.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "desktop/look/focus_ring.h"
#include "desktop/look/style_parts.h"

namespace quillet {

namespace {

constexpr QSize kKnobAndTrack(36, 20);

}  // namespace

Switch::Switch(const QString& name, QWidget* parent) : QAbstractButton(parent) {
  setAccessibleName(name);
  setCheckable(true);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setRingCorner(*this, kKnobAndTrack.height());  // more than half of it, in any size
}

QSize Switch::sizeHint() const { return kKnobAndTrack * lookOf(*this).growth(); }

void Switch::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  option.initFrom(this);
  if (isDown()) option.state |= QStyle::State_Sunken;
  if (isChecked()) option.state |= QStyle::State_On;
  QPainter painter(this);
  parts::paintSwitch(painter, lookOf(*this), rect(), parts::stateOf(option));
}

}  // namespace quillet
