// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/request_budget.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPlacesKeptForPeople = 5;
constexpr auto kWindow = 60s;
// Half a second beyond the window keeps a request clear of the service's own edge.
constexpr auto kWindowWithMargin = 60500ms;
constexpr auto kShortestWait = 500ms;
// Those before us have a place and only have to wake up.
constexpr auto kWaitForTurn = 20ms;

}  // namespace

Task<> RequestBudget::take(RequestClass requestClass, StopToken stop) {
  const Tickets::const_iterator ticket = waiting_.insert(waiting_.end(), requestClass);
  // Leaves the queue when the wait ends, by its place or by an exception.
  const std::shared_ptr<void> leave(nullptr, [this, ticket](void*) { waiting_.erase(ticket); });
  for (;;) {
    forgetOldRequests();
    if (hasPlace(requestClass) && ticket == next()) break;
    co_await clock_.sleepFor(waitFor(requestClass), stop);
  }
  requestTimes_.push_back(clock_.monotonic());
}

std::optional<std::chrono::milliseconds> RequestBudget::currentWait() const {
  if (waiting_.empty()) return {};
  const RequestClass first = *next();
  if (hasPlace(first)) return {};
  return waitFor(first);
}

void RequestBudget::forgetOldRequests() {
  const auto cutOff = clock_.monotonic() - kWindow;
  while (!requestTimes_.empty() && requestTimes_.front() < cutOff) requestTimes_.pop_front();
}

std::size_t RequestBudget::placesFor(RequestClass requestClass) const {
  if (requestClass == RequestClass::interactive) return requestsPerMinute_;
  return std::max(requestsPerMinute_, kPlacesKeptForPeople + 1) - kPlacesKeptForPeople;
}

bool RequestBudget::hasPlace(RequestClass requestClass) const {
  return requestTimes_.size() < placesFor(requestClass);
}

/// A person's request is served before all others; without one the first in the queue is next.
RequestBudget::Tickets::const_iterator RequestBudget::next() const {
  const auto person = std::ranges::find(waiting_, RequestClass::interactive);
  return person == waiting_.end() ? waiting_.begin() : person;
}

std::chrono::milliseconds RequestBudget::waitFor(RequestClass requestClass) const {
  if (hasPlace(requestClass)) return kWaitForTurn;
  const auto reopens = requestTimes_.front() + kWindowWithMargin;
  return std::max<std::chrono::milliseconds>(reopens - clock_.monotonic(), kShortestWait);
}

}  // namespace quillet
