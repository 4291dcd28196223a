// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/cost_of_use.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Purchases = std::vector<InAppPurchase>;
using Currency = std::optional<std::string>;

InAppPurchase license(double price, Currency currency = "USD") {
  return {.name = "License", .price = price, .currency = std::move(currency)};
}

InAppPurchase plan(double price, const char* period, Currency currency = "USD") {
  return {.name = "Plus",
          .isSubscription = true,
          .price = price,
          .currency = std::move(currency),
          .recurringSubscriptionPeriod = period};
}

ITunesApp app(std::optional<double> price) {
  ITunesApp app;
  app.price = price;
  app.currency = "USD";
  return app;
}

TEST(CostOfUse, TheFirstYearIsThePriceAndTheCheapestSubscription) {
  const std::tuple<std::optional<double>, Purchases, std::optional<double>> rows[] = {
      {5, {}, 5},
      {5, {license(60)}, 5},
      {5, {plan(4, "P1M"), plan(20, "P1Y")}, 25},
      {5, {plan(20, "P1Y", {})}, 25},  // sold in the app's currency where none is named
      {5, {plan(20, "P1Y", "EUR")}, {}},
      {5, {plan(1, "P1Y", "EUR"), plan(20, "P1Y")}, 25},
      {5, {plan(20, "sometimes")}, {}},
      {{}, {plan(20, "P1Y")}, {}},
  };
  for (const auto& [price, purchases, cost] : rows) {
    EXPECT_EQ(firstYearCost(app(price), purchases), cost);
  }
}

TEST(CostOfUse, TellsAPlanThatCannotBeComparedFromNone) {
  EXPECT_FALSE(subscriptionCost(app(5), Purchases{license(60)}).sold);
  const SubscriptionCost cost = subscriptionCost(app(5), Purchases{plan(20, "P1Y", "EUR")});
  EXPECT_TRUE(cost.sold);
  EXPECT_EQ(cost.cheapestPerYear, std::nullopt);
}

TEST(CostOfUse, AnUnlockTakesOverWhereItCostsLessThanAllTheYears) {
  struct Row {
    Purchases purchases;
    int years;
    std::optional<double> total;
    std::optional<int> unlockMonths;
  };
  const Purchases both{plan(25, "P1Y"), license(60), license(80)};
  const Row rows[] = {
      {both, 1, 30, {}},
      {both, 2, 55, {}},
      {both, 3, 65, 29},
      {both, 5, 65, 29},
      {{plan(20, "P1Y"), license(60)}, 3, 65, {}},  // no less than the subscription
      {{plan(25, "P1Y"), license(60, "EUR")}, 3, 80, {}},
      {{license(60)}, 3, 5, {}},
      {{plan(25, "P1Y", "EUR"), license(60)}, 3, {}, {}},
  };
  for (const Row& row : rows) {
    const auto cost = costOfUse(app(5), row.purchases, row.years);
    ASSERT_EQ(cost.has_value(), row.total.has_value());
    if (!cost) continue;
    EXPECT_EQ(cost->total, *row.total);
    EXPECT_EQ(cost->unlock ? cost->unlock->months : std::nullopt, row.unlockMonths);
  }
}

}  // namespace
}  // namespace quillet
