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
