// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_record.h"

#include <cmath>

#include "analysis/recorded_price.h"

namespace quillet {

namespace {

using Points = std::span<const PriceSeed::Point>;

constexpr double kPercentTolerance = 1e-9;

template <typename Beats>
PriceExtreme extremeOf(Points points, Beats beats) {
  PriceExtreme extreme{points.front().price, points.front().day};
  for (const PriceSeed::Point& point : points) {
    if (beats(point.price, extreme.price) || isSamePrice(point.price, extreme.price)) {
      extreme = {point.price, point.day};
    }
  }
  return extreme;
}

}  // namespace

std::optional<PriceStep> lastStep(Points points) {
  for (std::size_t i = points.size(); i-- > 1;) {
    const double was = points[i - 1].price;
    if (!isSamePrice(was, points[i].price)) return PriceStep{was, points[i].price, points[i].day};
  }
  return {};
}

PriceExtreme lowestOf(Points points) {
  return extremeOf(points, [](double price, double lowest) { return price < lowest; });
}

PriceExtreme highestOf(Points points) {
  return extremeOf(points, [](double price, double highest) { return price > highest; });
}

std::optional<double> percentOf(const PriceStep& step) {
  if (step.was == 0) return {};
  return (step.now - step.was) / step.was * 100;
}

bool isDrop(const PriceStep& step, double minimumPercent) {
  const auto percent = percentOf(step);
  return percent && *percent < 0 && -*percent >= minimumPercent - kPercentTolerance;
}

double shownPercent(double percent) {
  // A half that binary fractions blur is still a half.
  const double tenths = percent * 10;
  return std::round(tenths + std::copysign(kPercentTolerance, tenths)) / 10;
}

}  // namespace quillet
