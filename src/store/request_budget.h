// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <list>
#include <optional>

#include "net/clock.h"
#include "net/request_class.h"

namespace quillet {

/// Requests that we send in a minute. Apple speaks of some 20 a minute from one address, and counts
/// those of other programs there as well.
inline constexpr std::size_t kRequestsPerMinute = 15;

/// Lets at most so many requests (1 or more) start in any 60 seconds, in the order in which they
/// asked. Interactive requests go before background ones, and background ones leave 5 places free
/// but have one at least.
class RequestBudget {
 public:
  explicit RequestBudget(Clock& clock, std::size_t requestsPerMinute = kRequestsPerMinute)
      : clock_(clock), requestsPerMinute_(requestsPerMinute) {}

  /// Suspends until the request may start, and counts it. Throws NetworkError `cancelled` when
  /// `stop` is requested first.
  Task<> take(RequestClass requestClass, StopToken stop);

  /// How long it takes until the next of the requests that wait for a place may start; absent while
  /// none waits.
  [[nodiscard]] std::optional<std::chrono::milliseconds> currentWait() const;

 private:
  using Tickets = std::list<RequestClass>;

  void forgetOldRequests();
  [[nodiscard]] std::size_t placesFor(RequestClass requestClass) const;
  [[nodiscard]] bool hasPlace(RequestClass requestClass) const;
  [[nodiscard]] Tickets::const_iterator next() const;
  [[nodiscard]] std::chrono::milliseconds waitFor(RequestClass requestClass) const;

  Clock& clock_;
  std::size_t requestsPerMinute_;
  // On the monotonic clock: a wall clock set back would make every request wait for hours.
  std::deque<Clock::Monotonic> requestTimes_;
  Tickets waiting_;
};

}  // namespace quillet
