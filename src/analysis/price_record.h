// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>

#include "store/records/price_seed.h"

namespace quillet {

/// One step of a price.
struct PriceStep {
  double was = 0;
  double now = 0;
  std::chrono::sys_days changedOn;

  friend bool operator==(const PriceStep&, const PriceStep&) = default;
};

/// Where a recorded price stood lowest or highest, and the latest day on which it was seen there.
struct PriceExtreme {
  double price = 0;
  std::chrono::sys_days on;

  friend bool operator==(const PriceExtreme&, const PriceExtreme&) = default;
};

/// The change that led to the present price; absent where the price never moved. Points with an
/// equal price are no change. `points`, here and below, are in the order of their days.
[[nodiscard]] std::optional<PriceStep> lastStep(std::span<const PriceSeed::Point> points);

/// There must be a point.
[[nodiscard]] PriceExtreme lowestOf(std::span<const PriceSeed::Point> points);
[[nodiscard]] PriceExtreme highestOf(std::span<const PriceSeed::Point> points);

/// By how many percent of the old price it moved, negative for a drop; absent where it rose from 0.
[[nodiscard]] std::optional<double> percentOf(const PriceStep& step);

/// Whether the step is a drop of at least so many percent, give or take what binary fractions blur:
/// 2.00 to 1.80 is 10.
[[nodiscard]] bool isDrop(const PriceStep& step, double minimumPercent);

/// With one decimal, halves away from zero.
[[nodiscard]] double shownPercent(double percent);

}  // namespace quillet
