// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/hand_clock.h"

#include "net/network_errors.h"
#include "support/event_loop.h"

namespace quillet {

using std::chrono::milliseconds;

Task<> HandClock::sleepFor(milliseconds duration, StopToken stop) {
  waits_.push_back(duration);
  const Key key(monotonic_ + duration, waits_.size());
  const Completion woken;
  if (duration > milliseconds::zero()) {
    sleepers_.emplace(key, woken);
  } else {
    woken.set();
  }
  const StopCallback onStop(stop, [this, key, woken] {
    sleepers_.erase(key);
    woken.set();
  });
  co_await woken;
  if (stop.stopRequested()) throw cancelledError();
}

void HandClock::advance(milliseconds duration) {
  const Monotonic target = monotonic_ + duration;
  handlePendingEvents();
  while (!sleepers_.empty() && sleepers_.begin()->first.first <= target) wakeFirst();
  moveTo(target);
}

bool HandClock::advanceToNextDeadline() {
  if (sleepers_.empty()) return false;
  wakeFirst();
  return true;
}

void HandClock::wakeFirst() {
  const auto sleeper = sleepers_.extract(sleepers_.begin());
  moveTo(sleeper.key().first);
  sleeper.mapped().set();
  handlePendingEvents();
}

void HandClock::moveTo(Monotonic time) {
  wall_ += time - monotonic_;
  monotonic_ = time;
}

}  // namespace quillet
