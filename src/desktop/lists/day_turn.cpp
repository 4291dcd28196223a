// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/day_turn.h"

namespace quillet {

DayTurn::DayTurn(const ViewWorld& world) : world_(world) {
  midnight_.setSingleShot(true);
  midnight_.setTimerType(Qt::VeryCoarseTimer);  // to a second; others are late by a share
  connect(&midnight_, &QTimer::timeout, this, [this] {
    await();
    Q_EMIT turned();
  });
}

std::chrono::local_days DayTurn::today() const {
  const Instant now = world_.clock.now();
  return std::chrono::floor<std::chrono::days>(
      std::chrono::local_time<Instant::duration>((now + world_.zone(now)).time_since_epoch()));
}

void DayTurn::await() {
  day_ = today();
  const Instant now = world_.clock.now();
  const auto sinceEpoch = (now + world_.zone(now)).time_since_epoch();
  const auto tomorrow = day_.time_since_epoch() + std::chrono::days(1);
  midnight_.start(std::chrono::ceil<std::chrono::milliseconds>(tomorrow - sinceEpoch));
}

void DayTurn::look() {
  if (today() == day_) return;
  await();
  Q_EMIT turned();
}

}  // namespace quillet
