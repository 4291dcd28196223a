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

}  // namespace

Task<> RequestBudget::take(RequestClass requestClass, StopToken stop) {
  const auto ticket = waiting_.insert(waiting_.end(), {requestClass});
  // Leaves the queue when the wait ends, by its place or by an exception.
  const std::shared_ptr<void> leave(nullptr, [this, ticket](void*) { waiting_.erase(ticket); });
  for (;;) {
    forgetOldRequests();
    if (hasPlace(requestClass) && isNext(ticket)) break;
    co_await clock_.sleepFor(waitFor(requestClass), stop);
  }
  requestTimes_.push_back(clock_.monotonic());
}

std::optional<std::chrono::milliseconds> RequestBudget::currentWait() const {
  if (waiting_.empty()) return {};
  // A person's request is served before all others; without one the first in the queue is next.
  const auto person = std::ranges::find(waiting_, RequestClass::interactive, &Ticket::requestClass);
  const Ticket& next = person == waiting_.end() ? waiting_.front() : *person;
  if (hasPlace(next.requestClass)) return {};
  return waitFor(next.requestClass);
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

bool RequestBudget::isNext(Tickets::const_iterator ticket) const {
  // A background request never holds up a person's; among their own kind they keep their order.
  const auto goesBefore = [&](const Ticket& other) {
    return other.requestClass <= ticket->requestClass;
  };
  const bool firstOfItsKind = std::none_of(waiting_.begin(), ticket, goesBefore);
  const bool personWaits = ticket->requestClass == RequestClass::background &&
                           std::any_of(std::next(ticket), waiting_.end(), [](const Ticket& t) {
                             return t.requestClass == RequestClass::interactive;
                           });
  return firstOfItsKind && !personWaits;
}

std::chrono::milliseconds RequestBudget::waitFor(RequestClass requestClass) const {
  if (hasPlace(requestClass)) return kShortestWait;
  const auto reopens = requestTimes_.front() + kWindowWithMargin;
  return std::max<std::chrono::milliseconds>(reopens - clock_.monotonic(), kShortestWait);
}

}  // namespace quillet
