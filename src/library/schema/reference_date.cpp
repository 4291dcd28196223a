// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/reference_date.h"

#include <chrono>
#include <cmath>

namespace quillet {
namespace {

constexpr Instant kReference = std::chrono::sys_days{std::chrono::year{2001} / 1 / 1};
constexpr double kMillisecondsPerSecond = 1000;

// A little inside 2^63, so that adding the reference cannot overflow.
constexpr double kFarthest = 9.2e18;

}  // namespace

double toReferenceSeconds(Instant instant) {
  // Subtracted as doubles, for the earliest instants have no distance that fits their own type.
  const auto milliseconds = static_cast<double>(instant.time_since_epoch().count()) -
                            static_cast<double>(kReference.time_since_epoch().count());
  return milliseconds / kMillisecondsPerSecond;
}

Instant fromReferenceSeconds(double seconds) {
  const double milliseconds = seconds * kMillisecondsPerSecond;
  if (std::isnan(milliseconds)) return kReference;
  if (milliseconds > kFarthest) return Instant::max();
  if (milliseconds < -kFarthest) return Instant::min();
  return kReference + std::chrono::milliseconds(std::llround(milliseconds));
}

}  // namespace quillet
