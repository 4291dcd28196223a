// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "collector/lookup_queue.h"

namespace quillet {

// How long a round takes, and how far it is, in words.

/// How fast one address may ask, and how often a round is to begin.
struct RoundPace {
  int requestsPerMinute = 15;
  std::chrono::hours every{0};  ///< 0: there is no period
};

/// How many addresses take a round of so many lookups through its period. A fifth of each one's
/// time is spare, for what is asked twice, for pauses, and for charts.
[[nodiscard]] std::int64_t addressesFor(std::int64_t lookups, const RoundPace& pace);

/// How many lookups a round has, and how long they take.
[[nodiscard]] std::string beginningOf(const Round& round, const RoundPace& pace);

/// What would help a round that takes longer than its period; absent for one that does not.
[[nodiscard]] std::optional<std::string> shortageOf(const Round& round, const RoundPace& pace);

/// How far a round is: "12 of 60 charts and searches are asked; 1,234 apps found", or "4 of 12
/// lookups are done".
[[nodiscard]] std::string progressOf(const Round& round);

/// A span in its two largest units: "9 d 6 h", "6 h 14 min", "20 h", "14 min".
[[nodiscard]] std::string spanText(std::chrono::milliseconds span);

}  // namespace quillet
