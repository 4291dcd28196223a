// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "net/clock.h"
#include "net/task.h"
#include "store/records/itunes_error.h"

namespace quillet {

/// How long to wait after the store asked for fewer requests: before the second try and the third.
inline constexpr std::array<std::chrono::milliseconds, 2> kRateLimitPauses{
    std::chrono::seconds(20), std::chrono::seconds(45)};

/// Asks by `ask()`, a function that returns a task, and again after each pause while the store
/// limits requests. Throws what the last try threw; NetworkError `cancelled` when stopped. The
/// clock outlives it.
template <typename Ask>
std::invoke_result_t<Ask&> askPatiently(Ask ask, Clock* clock, StopToken stop) {
  for (std::size_t tries = 0;; ++tries) {
    try {
      co_return co_await ask();
    } catch (const ITunesError& error) {
      if (!error.isRateLimit() || tries == kRateLimitPauses.size()) throw;
    }
    co_await clock->sleepFor(kRateLimitPauses.at(tries), stop);
  }
}

}  // namespace quillet
