// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_cost.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

InAppPurchase subscription(const char* period, std::optional<double> price) {
  return {.isSubscription = true,
          .price = price,
          .currency = "USD",
          .recurringSubscriptionPeriod = period};
}

TEST(PurchaseCost, perYearUnlessBilledSo) {
  const std::tuple<const char*, double, double, const char*> rows[] = {
      {"P1M", 4.99, 59.875082, "$59.88/year"}, {"P360D", 20, 20.291667, "$20.29/year"},
      {"P361D", 20, 20.235457, "no text"},     {"P370D", 20, 19.743243, "no text"},
      {"P371D", 20, 19.690027, "$19.69/year"}, {"P1M", 0, 0, "$0.00/year"},
  };
  const LocaleFormats formats{UserLocale{}};
  for (const auto& [period, price, perYear, text] : rows) {
    const InAppPurchase purchase = subscription(period, price);
    EXPECT_NEAR(pricePerYear(purchase).value_or(-1), perYear, 1e-6) << period;
    EXPECT_EQ(perYearText(purchase, formats).value_or("no text"), text) << period;
  }
  InAppPurchase oneTime = subscription("P1M", 4.99);
  oneTime.isSubscription = false;
  for (const InAppPurchase& purchase :
       {oneTime, subscription("P1M", {}), subscription("P0D", 4.99), subscription("1M", 4.99)}) {
    EXPECT_EQ(pricePerYear(purchase), std::nullopt);
    EXPECT_EQ(perYearText(purchase, formats), std::nullopt);
  }
}

TEST(PurchaseCost, amountInItsOwnCurrency) {
  const LocaleFormats german{UserLocale{.monetary = "de_DE", .numeric = "de_DE"}};
  InAppPurchase purchase = subscription("P1M", 129.99);
  for (const auto& [currency, text] :
       {std::pair{"EUR", "1.559,75\xC2\xA0€/year"}, {"", "1.559,75/year"}}) {
    purchase.currency = currency;
    EXPECT_EQ(perYearText(purchase, german), text);
  }
}

TEST(PurchaseCost, cheapestWayIntoAnApp) {
  const auto sold = [](std::string name, const char* period, std::optional<double> price,
                       std::string currency = "USD") {
    const bool renews = *period != '\0';
    return InAppPurchase{.name = std::move(name),
                         .isSubscription = renews,
                         .price = price,
                         .currency = std::move(currency),
                         .recurringSubscriptionPeriod = period};
  };
  const std::pair<std::vector<InAppPurchase>, std::string_view> rows[] = {
      {{sold("Monthly", "P1M", 4.99), sold("Yearly", "P1Y", 39.99), sold("Lifetime", "", 99.99)},
       "sub $40/yr, unlock $100"},
      {{sold("Monthly", "P1M", 1.04)}, "sub $12.48/yr"},
      {{sold("Lifetime", "", 12.5), sold("Licence", "", 9.99), sold("Coins pack", "", 0.99)},
       "unlock $10"},
      // A free trial costs nothing, and another currency is not compared.
      {{sold("Yearly", "P1Y", 20), sold("Lifetime", "", 3, "EUR"), sold("Trial", "P1M", 0)},
       "sub $20/yr"},
      {{sold("Tip jar", "", 5), sold("Lifetime", "", {})}, "none"},
      {{}, "none"},
  };
  const LocaleFormats formats{UserLocale{}};
  for (const auto& [purchases, text] : rows) {
    const auto cost = insideCost(purchases);
    EXPECT_EQ(cost ? insideCostText(*cost, formats) : "none", text);
  }
}

}  // namespace
}  // namespace quillet
