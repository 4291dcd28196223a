// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/entrance.h"

#include <QWidget>

#include "desktop/look/look.h"

namespace quillet {

namespace {
constexpr int kMilliseconds = 140;
}

Entrance::Entrance(QWidget& widget) : QVariantAnimation(&widget), widget_(widget) {
  setStartValue(1.0);
  setEndValue(0.0);
  setDuration(kMilliseconds);
  setEasingCurve(QEasingCurve::OutCubic);
}

void Entrance::begin() {
  stop();
  if (lookOf(widget_).motion == Motion::full) start();
}

double Entrance::left() const { return state() == Running ? currentValue().toDouble() : 0; }

}  // namespace quillet
