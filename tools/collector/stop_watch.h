// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <optional>
#include <stdexcept>

#include "net/stop_token.h"

namespace quillet {

/// That a wait was given up because the program is to end.
class Stopped : public std::runtime_error {
 public:
  Stopped() : std::runtime_error("Stopped") {}
};

/// Ends waits during which the event loop does not run: for input, for a database, for the lock of
/// another process. A default-made one never does. Copies look for the stop each on its own.
class StopWatch {
 public:
  using Milliseconds = std::chrono::milliseconds;

  StopWatch() = default;
  /// `descriptor` becomes readable when a stop is wanted of which the event loop, and so `stop`,
  /// does not know yet; -1: there is none.
  explicit StopWatch(StopToken stop, int descriptor = -1);

  /// One that lets what is under way go on for so long after it has seen the stop.
  [[nodiscard]] StopWatch withGrace(Milliseconds grace) const;

  /// Whether a stop was requested, and the grace is over.
  [[nodiscard]] bool isOver();
  /// Throws Stopped when isOver().
  void require();

  /// Waits until `descriptor` is ready for the `events` of poll(), or in trouble; returns false
  /// when `limit` has passed before. Throws Stopped when isOver().
  [[nodiscard]] bool wait(int descriptor, short events, Milliseconds limit);
  void wait(int descriptor, short events);
  /// Waits so long. Throws Stopped when isOver().
  void pause(Milliseconds time);

 private:
  using Clock = std::chrono::steady_clock;

  [[nodiscard]] bool isSeen();

  StopToken stop_;
  int descriptor_ = -1;
  Milliseconds grace_{0};
  std::optional<Clock::time_point> seen_;
};

}  // namespace quillet
