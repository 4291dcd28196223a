// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/semaphore.h"

#include "net/network_errors.h"

namespace quillet {

Semaphore::Permit::~Permit() {
  if (semaphore_ != nullptr) semaphore_->release();
}

Task<Semaphore::Permit> Semaphore::acquire(StopToken stop, RequestClass requestClass) {
  if (free_ > 0) {
    --free_;
  } else {
    co_await waitForTurn(std::move(stop), requestClass);
  }
  co_return Permit(*this);
}

Task<> Semaphore::waitForTurn(StopToken stop, RequestClass requestClass) {
  const std::pair place(requestClass, ++lastNumber_);
  const Completion called;
  waiting_.emplace(place, called);
  const StopCallback onStop(stop, [called] { called.set(); });
  co_await called;
  if (!stop.stopRequested()) co_return;
  // Who is stopped after having been called hands the place on.
  if (waiting_.erase(place) == 0) release();
  throw cancelledError();
}

void Semaphore::release() {
  if (waiting_.empty()) {
    ++free_;
  } else {
    waiting_.extract(waiting_.begin()).mapped().set();
  }
}

}  // namespace quillet
