// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_series.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "analysis/purchase_series.h"
#include "base/text.h"

namespace quillet {
namespace {

using Currency = std::optional<std::string>;
using Amounts = std::vector<std::pair<double, Currency>>;

Instant day(std::size_t after) {
  return std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::days(after);
}

/// Prices of consecutive days.
std::vector<RecordedPrice> prices(const Amounts& amounts) {
  std::vector<RecordedPrice> result;
  for (const auto& [amount, currency] : amounts)
    result.push_back({day(result.size()), amount, currency});
  return result;
}

std::string shown(const std::vector<RecordedPrice>& series) {
  std::vector<std::string> words;
  for (const RecordedPrice& price : series)
    words.push_back(fmt::format("{} {}", price.amount, price.currency.value_or("-")));
  return join(words, ", ");
}

TEST(PriceSeries, HoldsNothingOfAnotherCurrency) {
  const std::pair<Amounts, const char*> rows[] = {
      {{}, ""},
      {{{5, {}}, {4, ""}}, "5 -, 4 -"},
      {{{50, "BGN"}, {25.5, "EUR"}, {20, "EUR"}}, "25.5 EUR, 20 EUR"},
      {{{5, "USD"}, {4, {}}, {3, "USD"}}, "5 USD, 4 USD, 3 USD"},
      {{{50, "BGN"}, {40, ""}, {20, "EUR"}, {18, {}}}, "20 EUR, 18 EUR"},
      {{{5, {}}, {4, "USD"}}, "5 USD, 4 USD"},
      {{{5, "USD"}, {50, "BGN"}, {5, "USD"}}, "5 USD, 5 USD"},
  };
  for (const auto& [amounts, expected] : rows)
    EXPECT_EQ(shown(inLatestCurrency(prices(amounts))), expected);
}

TEST(PriceSeries, KnowsWhenPricesWereInAnotherCurrency) {
  const std::pair<Amounts, const char*> rows[] = {
      {{}, ""},
      {{{5, {}}, {4, ""}}, ""},
      {{{50, "BGN"}, {40, ""}, {20, "EUR"}, {18, {}}}, "BGN 0 to 2"},
      {{{5, {}}, {50, "BGN"}, {9, "DEM"}, {20, "EUR"}}, "BGN 0 to 2, DEM 2 to 3"},
      {{{5, "USD"}, {50, "BGN"}, {49, "BGN"}, {5, "USD"}}, "BGN 1 to 3"},
  };
  for (const auto& [amounts, expected] : rows) {
    std::vector<std::string> words;
    for (const CurrencySpell& spell : otherCurrencies(prices(amounts)))
      words.push_back(fmt::format("{} {} to {}", spell.currency,
                                  (spell.from - day(0)).count() / 86'400'000,
                                  (spell.to - day(0)).count() / 86'400'000));
    EXPECT_EQ(join(words, ", "), expected);
  }
}

// Sales end in rises, too; what counts is a rise that leaves behind what was usual.
TEST(PriceSeries, KnowsTheLowestPriceSinceTheLastRiseForGood) {
  using Days = std::vector<std::pair<std::size_t, double>>;
  struct {
    const char* what;
    Days prices;
    std::optional<PriceLow> since;
  } const rows[] = {
      {"nothing", {}, {}},
      {"only sales", {{0, 9}, {100, 4}, {110, 9}, {300, 4}, {310, 9}}, {}},
      {"dearer, with sales",
       {{0, 5}, {50, 3}, {60, 5}, {200, 9}, {300, 7}, {310, 9}},
       PriceLow{7, day(300)}},
      {"dearer, and the old low came back",
       {{0, 5}, {50, 3}, {60, 5}, {200, 9}, {300, 3}, {310, 9}},
       {}},
      {"dearer since three weeks", {{0, 5}, {50, 3}, {60, 5}, {380, 9}}, {}},
  };
  for (const auto& row : rows) {
    std::vector<RecordedPrice> prices;
    for (const auto& [when, amount] : row.prices) prices.push_back({day(when), amount, "USD"});
    EXPECT_EQ(lowSinceLastRise(prices, day(400)), row.since) << row.what;
  }
  const std::vector<RecordedPrice> later{
      {day(0), 20, "USD"}, {day(1), 4, "USD"}, {day(2), 5, "USD"}, {day(370), 8, "USD"}};
  EXPECT_EQ(lowSinceLastRise(later, day(399)), std::nullopt);
  EXPECT_EQ(lowSinceLastRise(later, day(400)), (PriceLow{8, day(370)})) << "a month has passed";
}

TEST(PriceSeries, BeginsPublishedPricesWithTheDayOfTheZone) {
  using std::chrono::hours;
  const std::vector<RecordedPrice> prices{{day(0), 5, "USD", true},
                                          {day(1), 4, "USD", true},
                                          {day(1) + hours(3), 3, "USD"},
                                          {day(9), 5, "USD", true}};
  const auto begins = [&](int east) {
    std::vector<std::int64_t> told;
    for (const auto& price : onLocalDays(prices, [east](Instant) { return hours(east); }))
      told.push_back((*price.when - day(0)) / hours(1));
    return told;
  };
  using Hours = std::vector<std::int64_t>;
  EXPECT_EQ(begins(0), (Hours{0, 24, 27, 216}));
  EXPECT_EQ(begins(-8), (Hours{8, 27, 27, 224})) << "what was seen on a day comes after";
  EXPECT_EQ(begins(9), (Hours{-9, 15, 27, 207}));
}

TEST(PriceSeries, KnowsWhenALowWasLastSeen) {
  EXPECT_EQ(lowOf(prices({{2, {}}, {1, {}}, {5, {}}, {1.0005, {}}, {5, {}}})),
            (PriceLow{1.0005, day(3)}));
}

TEST(RecordedPrice, ChangesByNoMoreDigitsThanPricesHave) {
  EXPECT_EQ(changeSince(0.3, 0.1), 0.2);
  EXPECT_EQ(changeSince(0.1, 0.3), -0.2);
  EXPECT_EQ(changeSince(0.3, {}), std::nullopt);
  EXPECT_EQ(changeSince({}, 0.3), std::nullopt);
}

TEST(PurchaseSeries, AreOfOnePurchaseInOneStorefrontAndOneCurrency) {
  const auto row = [](const char* country, const char* key, double amount, const char* currency) {
    return RecordedPurchase{7, country, key, {}, {}, {{}, amount, currency}};
  };
  const auto all = purchaseSeries({row("bg", "pro", 50, "BGN"), row("bg", "tip", 1, "BGN"),
                                   row("de", "pro", 26, "EUR"), row("bg", "pro", 6.99, "EUR"),
                                   row("bg", "tip", 1.0005, "BGN"), row("de", "pro", 20, "EUR")});
  std::vector<std::string> lines;
  for (const PurchaseSeries& series : all) {
    lines.push_back(fmt::format("{} {}: {}, {} changes", series.country, series.name,
                                shown(series.history), changesOf(series.history).count));
  }
  EXPECT_EQ(join(lines, "\n"),
            "bg pro: 6.99 EUR, 0 changes\n"
            "bg tip: 1 BGN, 1.0005 BGN, 0 changes\n"
            "de pro: 26 EUR, 20 EUR, 1 changes");
}

}  // namespace
}  // namespace quillet
