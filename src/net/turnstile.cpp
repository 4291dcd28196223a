// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/turnstile.h"

#include "net/network_errors.h"

namespace quillet {

Turnstile::Place::~Place() {
  if (turnstile_ != nullptr) turnstile_->leave();
}

Task<Turnstile::Place> Turnstile::enter(StopToken stop, RequestClass requestClass) {
  if (free_ > 0) {
    --free_;
  } else {
    co_await waitForTurn(std::move(stop), requestClass);
  }
  co_return Place(*this);
}

Task<> Turnstile::waitForTurn(StopToken stop, RequestClass requestClass) {
  const std::pair place(requestClass, ++lastNumber_);
  const Completion called;
  waiting_.emplace(place, called);
  const StopCallback onStop(stop, [called] { called.set(); });
  co_await called;
  if (!stop.stopRequested()) co_return;
  // Who is stopped after having been called hands the place on.
  if (waiting_.erase(place) == 0) leave();
  throw cancelledError();
}

void Turnstile::leave() {
  if (waiting_.empty()) {
    ++free_;
  } else {
    waiting_.extract(waiting_.begin()).mapped().set();
  }
}

}  // namespace quillet
