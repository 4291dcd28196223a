// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

#include "base/dates.h"
#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

/// Time as the program sees it. Handed in wherever time is asked for or waited for.
class Clock {
 public:
  /// A monotonic reading; only differences mean anything.
  using Monotonic = std::chrono::time_point<Clock, std::chrono::milliseconds>;

  virtual ~Clock() = default;

  [[nodiscard]] virtual Instant now() const = 0;
  [[nodiscard]] virtual Monotonic monotonic() const = 0;

  /// Suspends the caller for at least `duration` on the monotonic clock, precise to a few
  /// milliseconds. Throws NetworkError `cancelled` from the event loop when `stop` is requested.
  virtual Task<> sleepFor(std::chrono::milliseconds duration, StopToken stop) = 0;
};

/// The machine's clock.
class SystemClock final : public Clock {
 public:
  [[nodiscard]] Instant now() const override;
  [[nodiscard]] Monotonic monotonic() const override;
  Task<> sleepFor(std::chrono::milliseconds duration, StopToken stop) override;
};

}  // namespace quillet
