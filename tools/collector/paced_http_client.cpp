// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/paced_http_client.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

namespace quillet {

namespace {

using namespace std::chrono_literals;

// Whoever holds the lock writes eight bytes. One who was halted then, or means ill, holds us up no
// longer.
constexpr auto kLockRetry = 20ms;
constexpr std::chrono::milliseconds kLongestLockWait = 10s;

}  // namespace

PacedHttpClient::PacedHttpClient(HttpClient& under, Clock& clock, int requestsPerMinute,
                                 std::function<RequestLedger()> openLedger,
                                 std::function<void(const std::string& line)> say)
    : under_(under), clock_(clock), requestsPerMinute_(requestsPerMinute), say_(std::move(say)) {
  try {
    ledger_ = openLedger();
  } catch (const std::system_error& error) {
    useOwnLedger(error.code().message());
  }
}

Task<HttpResponse> PacedHttpClient::get(HttpRequest request, StopToken stop) {
  co_await takePlace(stop);
  HttpResponse response = co_await under_.get(std::move(request), stop);
  if (!response.redirectedTo.empty()) noteAnother();
  co_return response;
}

/// The store was asked once more than we knew.
void PacedHttpClient::noteAnother() {
  try {
    ledger_.note(clock_);
  } catch (const std::system_error& error) {
    useOwnLedger(error.code().message());
  }
}

Task<> PacedHttpClient::takePlace(StopToken stop) {
  for (;;) {
    const std::chrono::milliseconds wait = tryToTakePlace();
    if (wait == 0ms) co_return;
    co_await clock_.sleepFor(wait, stop);
  }
}

/// Returns how long to wait before the next try; 0 when there was a place.
std::chrono::milliseconds PacedHttpClient::tryToTakePlace() {
  try {
    const auto [entry, wait] = ledger_.enter(clock_, requestsPerMinute_);
    if (entry == RequestLedger::Entry::locked) return waitForLock();
    waitedForLock_ = 0ms;
    return wait;
  } catch (const std::system_error& error) {
    useOwnLedger(error.code().message());
    return kLockRetry;
  }
}

std::chrono::milliseconds PacedHttpClient::waitForLock() {
  waitedForLock_ += kLockRetry;
  if (waitedForLock_ > kLongestLockWait) useOwnLedger("another process does not let go of it");
  return kLockRetry;
}

void PacedHttpClient::useOwnLedger(const std::string& reason) {
  say_(
      fmt::format("This machine's list of requests cannot be used: {}. This collector keeps a "
                  "budget of its own.",
                  reason));
  ledger_ = RequestLedger();
  waitedForLock_ = 0ms;
}

}  // namespace quillet
