// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_record.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

constexpr std::chrono::sys_days kFirst = std::chrono::year{2026} / 3 / 1;

/// Prices of consecutive days.
std::vector<PriceSeed::Point> points(std::initializer_list<double> prices) {
  std::vector<PriceSeed::Point> result;
  for (const double price : prices) {
    result.push_back({kFirst + std::chrono::days(result.size()), price});
  }
  return result;
}

TEST(PriceRecord, FindsTheChangeThatLedToThePresentPrice) {
  const std::tuple<const char*, std::vector<PriceSeed::Point>, std::optional<PriceStep>> rows[] = {
      {"one point", points({4.99}), {}},
      {"never moved", points({4.99, 4.9900001, 4.99}), {}},
      {"equal points after the change", points({4.99, 1.99, 1.99, 1.99}),
       PriceStep{4.99, 1.99, kFirst + std::chrono::days(1)}},
      {"up again", points({4.99, 1.99, 4.99}),
       PriceStep{1.99, 4.99, kFirst + std::chrono::days(2)}},
      {"a cent", points({1, 0.99}), PriceStep{1, 0.99, kFirst + std::chrono::days(1)}},
  };
  for (const auto& [situation, points, expected] : rows)
    EXPECT_EQ(lastStep(points), expected) << situation;
}

TEST(PriceRecord, KnowsTheLatestDayOfALow) {
  const auto all = points({2, 1, 5, 1, 5, 3});
  EXPECT_EQ(lowestOf(all), (PriceExtreme{1, kFirst + std::chrono::days(3)}));
  EXPECT_EQ(highestOf(all), (PriceExtreme{5, kFirst + std::chrono::days(4)}));
}

TEST(PriceRecord, JudgesADropByItsExactPercentage) {
  const struct {
    double was;
    double now;
    double minimum;
    bool expected;
    double shown;  // 0: not known
  } rows[] = {
      {2, 1.8, 10, true, -10},
      {2, 1.81, 10, false, -9.5},
      {4.99, 0, 100, true, -100},
      {4.99, 1.99, 60.1, true, -60.1},
      {4.99, 1.99, 60.13, false, -60.1},
      {1.99, 4.99, 0, false, 150.8},
      {0, 4.99, 0, false, 0},
      {8, 7.86, 0, true, -1.8},
      {8, 8.14, 0, false, 1.8},
  };
  for (const auto& row : rows) {
    const PriceStep step{row.was, row.now, kFirst};
    EXPECT_EQ(isDrop(step, row.minimum), row.expected) << row.was << " to " << row.now;
    EXPECT_DOUBLE_EQ(shownPercent(percentOf(step).value_or(0)), row.shown);
  }
}

}  // namespace
}  // namespace quillet
