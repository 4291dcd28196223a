// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "net/clock.h"
#include "net/completion.h"

namespace quillet {

/// A clock that stands still until a test moves it. Its two readings pass together; setNow() sets
/// the wall clock alone.
class FakeClock final : public Clock {
 public:
  explicit FakeClock(Instant now = Instant{}) : wall_(now) {}

  [[nodiscard]] Instant now() const override { return wall_; }
  [[nodiscard]] Monotonic monotonic() const override { return monotonic_; }
  Task<> sleepFor(std::chrono::milliseconds duration, StopToken stop) override;

  void setNow(Instant now) { wall_ = now; }

  /// Lets time pass as it would: stops at each deadline on the way, wakes its sleeper (equal ones
  /// in the order in which they fell asleep) and lets the event loop handle all that follows,
  /// before it goes on.
  void advance(std::chrono::milliseconds duration);

  /// Moves to the earliest deadline, likewise; false when nobody sleeps.
  bool advanceToNextDeadline();

  /// Every wait that was asked for, in order.
  [[nodiscard]] const std::vector<std::chrono::milliseconds>& waits() const { return waits_; }

 private:
  /// The deadline and the order of falling asleep.
  using Key = std::pair<Monotonic, std::size_t>;

  void moveTo(Monotonic time);
  void wakeFirst();

  Instant wall_;
  Monotonic monotonic_{};
  std::map<Key, Completion> sleepers_;
  std::vector<std::chrono::milliseconds> waits_;
};

}  // namespace quillet
