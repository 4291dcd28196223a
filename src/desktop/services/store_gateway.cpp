// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/store_gateway.h"

#include "net/network_errors.h"

namespace quillet {

void StoreGateway::use(QueryServices services, StopToken stop) {
  services_.emplace(services);
  stop_ = std::move(stop);
  for (const Completion& each : std::exchange(waiting_, {})) each.set();
}

Task<> StoreGateway::opened() {
  const Completion open;
  waiting_.push_back(open);
  co_await open;
}

std::optional<std::chrono::milliseconds> StoreGateway::budgetWait() const {
  return isOpen() ? services_->itunes.budgetWait() : std::nullopt;
}

Task<> StoreGateway::ended() {
  if (asking_ == 0) co_return;
  const Completion last;
  leaving_.push_back(last);
  co_await last;
}

void StoreGateway::leave() {
  if (--asking_ > 0) return;
  for (const Completion& each : std::exchange(leaving_, {})) each.set();
}

void StoreGateway::throwIfStopped(const StopToken& stop) {
  if (stop.stopRequested()) throw cancelledError();
}

}  // namespace quillet
