// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/clock.h"

#include <QTimer>
#include <algorithm>
#include <limits>

#include "net/completion.h"
#include "net/network_errors.h"

namespace quillet {

using std::chrono::milliseconds;

namespace {

/// Qt's timers count in an int: just under 25 days.
constexpr milliseconds kLongestTimer{std::numeric_limits<int>::max()};

}  // namespace

Instant SystemClock::now() const {
  return std::chrono::floor<milliseconds>(std::chrono::system_clock::now());
}

Clock::Monotonic SystemClock::monotonic() const {
  const auto reading = std::chrono::steady_clock::now().time_since_epoch();
  return Monotonic(std::chrono::floor<milliseconds>(reading));
}

Task<> SystemClock::sleepFor(milliseconds duration, StopToken stop) {
  for (; duration > kLongestTimer; duration -= kLongestTimer) {
    co_await sleepFor(kLongestTimer, stop);
  }
  const Completion woken;
  const StopCallback onStop(stop, [woken] { woken.set(); });
  QTimer timer;
  timer.setSingleShot(true);
  // Qt's default timer is off by up to a twentieth of the duration.
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout, &timer, [woken] { woken.set(); });
  timer.start(std::max(duration, milliseconds::zero()));
  co_await woken;
  if (stop.stopRequested()) throw cancelledError();
}

}  // namespace quillet
