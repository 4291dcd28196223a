// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/scale.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

namespace quillet {
namespace {

using Prices = std::vector<double>;

constexpr double kHeight = 132;

TEST(PriceRangeTest, StartsAtZeroUnlessAllChangesLieHigh) {
  struct {
    double lowest;
    double highest;
    PriceRange range;
  } const rows[] = {
      {4.99, 9.99, {0, 9.99}}, {7, 10, {0, 10}},     {8, 10, {7.6, 10}},
      {4.99, 4.99, {0, 4.99}}, {0, 2.99, {0, 2.99}}, {0, 0, {0, 1}},
  };
  for (const auto& row : rows) {
    const PriceRange range = priceRangeOf(row.lowest, row.highest);
    EXPECT_DOUBLE_EQ(range.bottom, row.range.bottom) << row.lowest << " to " << row.highest;
    EXPECT_DOUBLE_EQ(range.top, row.range.top) << row.lowest << " to " << row.highest;
  }
}

TEST(RoundPricesTest, AreAsCloseAsTheyMayBe) {
  struct {
    PriceRange range;
    int atMost;
    Prices prices;
  } const rows[] = {
      {{0, 9.99}, 5, {0, 2, 4, 6, 8}},         {{0, 10}, 5, {0, 5, 10}},
      {{0, 0.3}, 4, {0, 0.1, 0.2, 0.3}},       {{0, 39.99}, 5, {0, 10, 20, 30}},
      {{0, 0.99}, 5, {0, 0.2, 0.4, 0.6, 0.8}}, {{0, 1600}, 5, {0, 500, 1000, 1500}},
      {{45.2, 51}, 5, {46, 48, 50}},
  };
  for (const auto& row : rows) {
    const Prices prices = roundPrices(row.range, row.atMost);
    ASSERT_EQ(prices.size(), row.prices.size()) << row.range.top;
    for (std::size_t i = 0; i < prices.size(); ++i) EXPECT_DOUBLE_EQ(prices[i], row.prices[i]);
  }
}

TEST(RanksTest, NameBothEndsAndWhatIsClearOfOthersBetween) {
  using Ranks = std::vector<std::int64_t>;
  struct {
    std::int64_t worst;
    double height;
    Ranks named;
  } const rows[] = {
      {1, 144, {1, 3, 5}},
      {10, 144, {1, 3, 5, 10}},
      {10, 60, {1, 5, 10}},
      {11, 144, {1, 5, 10, 20}},
      {50, 144, {1, 10, 20, 30, 50}},
      {200, 60, {1, 100, 200}},
      {431, 144, {1, 50, 100, 150, 200, 431}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(namedRanks(lowestRankShown(row.worst), row.height), row.named) << row.worst;
}

TEST(AxisPricesTest, NamesFewPricesAndRoundOnesElse) {
  struct {
    const char* what;
    Prices prices;
    Prices named;
  } const rows[] = {
      {"two, and zero", {9.99, 4.99, 9.99, 4.99}, {0, 4.99, 9.99}},
      {"four", {2, 4, 6, 8}, {0, 2, 4, 6, 8}},
      {"five", {2, 3.5, 5, 6.5, 8}, {0, 2, 4, 6, 8}},
      {"two that are too close", {9.99, 9, 4}, {0, 2, 4, 6, 8}},
      {"close to zero", {0.5, 9.99}, {0, 2, 4, 6, 8, 9.99}},
      {"free now", {9.99, 0}, {0, 9.99}},
      {"high ones, without a zero", {40, 50}, {40, 50}},
      {"never changed", {4.99}, {0, 4.99}},
  };
  for (const auto& row : rows) {
    const PriceRange range =
        priceRangeOf(std::ranges::min(row.prices), std::ranges::max(row.prices));
    EXPECT_EQ(axisPrices(row.prices, row.prices.back(), range, kHeight), row.named) << row.what;
  }
}

std::string inWords(const std::vector<TimeTick>& ticks) {
  std::string words;
  for (const TimeTick& tick : ticks) {
    const std::string day = formatDay(tick.day);
    if (!words.empty()) words += ' ';
    words += tick.unit == TimeUnit::year    ? day.substr(0, 4)
             : tick.unit == TimeUnit::month ? day.substr(0, 7)
                                            : day;
  }
  return words;
}

TEST(TimeTicksTest, StandAtBeginningsThatHaveRoom) {
  struct {
    const char* from;
    const char* to;
    int atMost;
    const char* ticks;
  } const rows[] = {
      {"2025-11-20T09:00:00Z", "2026-11-20T09:00:00Z", 6,
       "2026 2026-03 2026-05 2026-07 2026-09 2026-11"},
      {"2025-11-20T09:00:00Z", "2026-11-20T09:00:00Z", 4, "2026 2026-04 2026-07 2026-10"},
      {"2026-10-21T09:00:00Z", "2026-11-20T09:00:00Z", 6,
       "2026-10-24 2026-10-29 2026-11-03 2026-11-08 2026-11-13 2026-11-18"},
      {"2026-10-21T09:00:00Z", "2026-11-20T09:00:00Z", 3, "2026-10-24 2026-11-03 2026-11-13"},
      {"2018-03-02T00:00:00Z", "2026-11-20T09:00:00Z", 6, "2020 2022 2024 2026"},
      {"2024-12-31T00:00:00Z", "2025-01-02T00:00:00Z", 6, "2024-12-31 2025-01-01 2025-01-02"},
      {"2026-11-20T08:00:00Z", "2026-11-20T09:00:00Z", 6, ""},
      {"2026-11-20T08:00:00Z", "2025-11-20T09:00:00Z", 6, ""},
      {"1969-12-01T00:00:00Z", "1970-01-20T00:00:00Z", 6,
       "1969-12-02 1969-12-12 1969-12-22 1970-01-01 1970-01-11"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(
        inWords(timeTicks(*parseInternetDate(row.from), *parseInternetDate(row.to), row.atMost)),
        row.ticks)
        << row.from << " to " << row.to;
  }
}

}  // namespace
}  // namespace quillet
