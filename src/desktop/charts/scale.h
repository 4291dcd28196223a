// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// What a chart of prices shows, from its lower edge to its upper one.
struct PriceRange {
  double bottom = 0;
  double top = 1;

  [[nodiscard]] bool startsAtZero() const { return bottom == 0; }
  bool operator==(const PriceRange&) const = default;
};

/// Of prices that are never below 0. It starts at 0, so that heights can be compared, unless all of
/// them lie so high that their changes would be lost; then room is left below for a mark's text.
[[nodiscard]] PriceRange priceRangeOf(double lowest, double highest);

/// Round numbers inside the range, lowest first, as close as `atMost` of them can be; at least 2.
[[nodiscard]] std::vector<double> roundPrices(const PriceRange& range, int atMost);

/// What an axis of this height in pixels names, lowest first: the prices themselves where they are
/// few and far enough apart, and round ones else. The present price is always among them.
[[nodiscard]] std::vector<double> axisPrices(std::vector<double> prices, double present,
                                             const PriceRange& range, double height);

/// The rank at the lower edge of a chart whose upper edge is 1 and in which `worst` has its place.
[[nodiscard]] std::int64_t lowestRankShown(std::int64_t worst);

/// What an axis of this height from 1 down to `bottom` names, the best first: both ends, and
/// between them what is far enough apart.
[[nodiscard]] std::vector<std::int64_t> namedRanks(std::int64_t bottom, double height);

/// Texts of an axis need so many pixels from one to the next.
inline constexpr double kAxisTextDistance = 16;

enum class TimeUnit { day, month, year };

struct TimeTick {
  std::chrono::sys_days day;
  TimeUnit unit = TimeUnit::month;  ///< what is worth being said of it

  bool operator==(const TimeTick&) const = default;
};

/// Beginnings of years, months or days between the two, as close as `atMost` of them can be. A
/// month that begins a year says so.
[[nodiscard]] std::vector<TimeTick> timeTicks(Instant from, Instant to, int atMost);

}  // namespace quillet
