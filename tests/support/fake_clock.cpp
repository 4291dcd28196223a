// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/fake_clock.h"

#include "net/network_errors.h"
#include "support/event_loop.h"

namespace quillet {

using std::chrono::milliseconds;

Task<> FakeClock::sleepFor(milliseconds duration, StopToken stop) {
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

void FakeClock::advance(milliseconds duration) {
  const Monotonic target = monotonic_ + duration;
  handlePendingEvents();
  while (!sleepers_.empty() && sleepers_.begin()->first.first <= target) wakeFirst();
  moveTo(target);
}

bool FakeClock::advanceToNextDeadline() {
  if (sleepers_.empty()) return false;
  wakeFirst();
  return true;
}

void FakeClock::wakeFirst() {
  const auto sleeper = sleepers_.extract(sleepers_.begin());
  moveTo(sleeper.key().first);
  sleeper.mapped().set();
  handlePendingEvents();
}

void FakeClock::moveTo(Monotonic time) {
  wall_ += time - monotonic_;
  monotonic_ = time;
}

}  // namespace quillet
