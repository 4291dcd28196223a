// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_record.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

constexpr std::chrono::sys_days kFirst = std::chrono::year{2026} / 3 / 1;

std::chrono::sys_days day(int after) { return kFirst + std::chrono::days(after); }

/// Prices of consecutive days.
std::vector<PriceSeed::Point> points(const std::vector<double>& prices) {
  std::vector<PriceSeed::Point> result;
  for (const double price : prices) result.push_back({day(static_cast<int>(result.size())), price});
  return result;
}

TEST(PriceRecord, FindsTheChangeThatLedToThePresentPrice) {
  const std::pair<std::vector<double>, std::optional<PriceStep>> rows[] = {
      {{4.99}, {}},
      {{4.99, 4.9900001, 4.99}, {}},
      {{4.99, 1.99, 1.99, 1.99}, PriceStep{4.99, 1.99, day(1)}},
      {{4.99, 1.99, 4.99}, PriceStep{1.99, 4.99, day(2)}},
      {{1, 0.99}, PriceStep{1, 0.99, day(1)}},
  };
  for (const auto& [prices, expected] : rows) EXPECT_EQ(lastStep(points(prices)), expected);
}

TEST(PriceRecord, KnowsTheLatestDayOfALow) {
  const auto all = points({2, 1, 5, 1, 5, 3});
  EXPECT_EQ(lowestOf(all), (PriceExtreme{1, day(3)}));
  EXPECT_EQ(highestOf(all), (PriceExtreme{5, day(4)}));
}

TEST(PriceRecord, JudgesADropByItsExactPercentage) {
  // Was, is, the least percentage; whether that is a drop, and the percentage shown, 0: not known.
  const std::tuple<double, double, double, bool, double> rows[] = {
      {2, 1.8, 10, true, -10},         {2, 1.81, 10, false, -9.5},
      {4.99, 1.99, 60.1, true, -60.1}, {4.99, 1.99, 60.13, false, -60.1},
      {1.99, 4.99, 0, false, 150.8},   {0, 4.99, 0, false, 0},
      {8, 7.86, 0, true, -1.8},        {8, 8.14, 0, false, 1.8},
  };
  for (const auto& [was, now, minimum, expected, shown] : rows) {
    const PriceStep step{was, now, kFirst};
    EXPECT_EQ(isDrop(step, minimum), expected) << was << " to " << now;
    EXPECT_DOUBLE_EQ(shownPercent(percentOf(step).value_or(0)), shown);
  }
}

}  // namespace
}  // namespace quillet
