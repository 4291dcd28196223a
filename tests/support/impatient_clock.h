// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "net/clock.h"
#include "net/completion.h"

namespace quillet {

/// Tells the time of day, and waits for nothing: whoever sleeps goes on with the next turn of the
/// event loop.
class ImpatientClock final : public Clock {
 public:
  [[nodiscard]] Instant now() const override {
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
  }
  [[nodiscard]] Monotonic monotonic() const override { return time_; }
  Task<> sleepFor(std::chrono::milliseconds duration, StopToken /*stop*/) override {
    const Completion turn;
    turn.set();
    co_await turn;
    time_ += duration;
  }

 private:
  Monotonic time_{};
};

}  // namespace quillet
