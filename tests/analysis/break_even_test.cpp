// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/break_even.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace quillet {
namespace {

using Currency = std::optional<std::string>;

InAppPurchase unlock(const char* name, double price, Currency currency = "USD") {
  return {.name = name, .price = price, .currency = std::move(currency)};
}

InAppPurchase subscription(const char* name, double price, const char* period,
                           Currency currency = "USD") {
  return {.name = name,
          .isSubscription = true,
          .price = price,
          .currency = std::move(currency),
          .recurringSubscriptionPeriod = period};
}

std::string sentences(const std::vector<InAppPurchase>& purchases) {
  std::vector<std::string> lines;
  for (const BreakEven& each : breakEvens(purchases)) lines.push_back(breakEvenSentence(each));
  return join(lines, " ");
}

TEST(BreakEven, monthsUntilAnUnlockIsCheaper) {
  const InAppPurchase year = subscription("Yearly", 12, "P1Y");
  const std::tuple<const char*, std::vector<InAppPurchase>, const char*> rows[] = {
      {"exactly three years' price is 36 months, not 37",
       {unlock("License", 56.97), subscription("Plus", 18.99, "P1Y")},
       "License costs less than Plus after 36 months."},
      {"a single month",
       {unlock("License", 0.5), year},
       "License costs less than Yearly after 1 month."},
      {"the last month worth saying",
       {unlock("License", 120), year},
       "License costs less than Yearly after 120 months."},
      {"just beyond it",
       {unlock("License", 120.01), year},
       "License never costs less than Yearly within ten years."},
      {"beyond every integer",
       {unlock("License", 1e300), year},
       "License never costs less than Yearly within ten years."},
      {"cheapest by year, not by price",
       {subscription("Weekly", 1.99, "P1W"), subscription("Monthly", 4.99, "P1M"),
        unlock("License", 59), subscription("Quarterly", 12.99, "P3M")},
       "License costs less than Quarterly after 14 months."},
      {"each unlock against its own currency",
       {unlock("Pro", 10, "EUR"), unlock("Lifetime", 30), year,
        subscription("Euro year", 24, "P1Y", "EUR"), subscription("Yen year", 1, "P1Y", "JPY")},
       "Pro costs less than Euro year after 5 months. Lifetime costs less than Yearly after 30 "
       "months."},
      {"no equal currency", {unlock("Pro", 10, "EUR"), year}, ""},
      {"unknown currencies are not equal",
       {unlock("Pro", 10, {}), subscription("Yearly", 12, "P1Y", {})},
       ""},
      {"an unlock for nothing", {unlock("Pro", 0), year}, ""},
      {"no readable period", {unlock("Pro", 10), subscription("Plus", 12, "P")}, ""},
  };
  for (const auto& [situation, purchases, expected] : rows) {
    EXPECT_EQ(sentences(purchases), expected) << situation;
  }
}

}  // namespace
}  // namespace quillet
