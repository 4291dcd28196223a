// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/break_even.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace quillet {
namespace {

using Purchases = std::vector<InAppPurchase>;
using Currency = std::optional<std::string>;

InAppPurchase license(double price, Currency currency = "USD") {
  return {.name = "License", .price = price, .currency = std::move(currency)};
}

InAppPurchase plan(const char* name, double price, const char* period, Currency currency = "USD") {
  return {.name = name,
          .isSubscription = true,
          .price = price,
          .currency = std::move(currency),
          .recurringSubscriptionPeriod = period};
}

std::string sentences(const Purchases& purchases) {
  std::vector<std::string> lines;
  for (const BreakEven& each : breakEvens(purchases)) lines.push_back(breakEvenSentence(each));
  return join(lines, " ");
}

TEST(BreakEven, monthsUntilAnUnlockIsCheaper) {
  const InAppPurchase year = plan("Plus", 12, "P1Y");
  const std::pair<Purchases, const char*> rows[] = {
      // Exactly three years' price is 36 months, not 37.
      {{license(56.97), plan("Pro", 18.99, "P1Y")}, "License costs less than Pro after 36 months."},
      {{license(0.5), year}, "License costs less than Plus after 1 month."},
      {{license(120), year}, "License costs less than Plus after 120 months."},
      {{license(120.01), year}, "License never costs less than Plus within ten years."},
      {{license(1e300), year}, "License never costs less than Plus within ten years."},
      // The cheapest by year, not by price.
      {{plan("Weekly", 1.99, "P1W"), license(59), plan("Quarterly", 12.99, "P3M"), year},
       "License costs less than Plus after 59 months."},
      // Each against its own currency, and an unknown one is none.
      {{license(10, "EUR"), license(30), year, plan("Euro", 24, "P1Y", "EUR"),
        plan("Yen", 1, "P1Y", "JPY")},
       "License costs less than Euro after 5 months. License costs less than Plus after 30 "
       "months."},
      {{license(10, {}), plan("Plus", 12, "P1Y", {})}, ""},
      {{license(0), year}, ""},
      {{license(10), plan("Plus", 12, "P")}, ""},
  };
  for (const auto& [purchases, expected] : rows) EXPECT_EQ(sentences(purchases), expected);
}

}  // namespace
}  // namespace quillet
