// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_totals.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PriceTotals, AddOnlyWhatIsKnownAndInOneCurrency) {
  const std::pair<std::vector<KnownPrice>, PriceTotals> rows[] = {
      {{}, {}},
      {{{4.5, "USD"}, {7, "EUR"}, {0, "USD"}, {2, "CHF"}, {{}, "USD"}, {3, {}}, {9, ""}},
       {{{"USD", 4.5, 2}, {"CHF", 2, 1}, {"EUR", 7, 1}}, 3}},
      {{{{}, {}}}, {{}, 1}},
  };
  for (const auto& [prices, expected] : rows)
    EXPECT_EQ(priceTotals(prices), expected) << prices.size() << " apps";
}

}  // namespace
}  // namespace quillet
