// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/cost_of_use.h"

#include <algorithm>

#include "analysis/purchase_cost.h"

namespace quillet {

namespace {

/// Of those sold in the app's own currency.
std::optional<BreakEven> cheapestUnlock(const ITunesApp& app,
                                        std::span<const InAppPurchase> purchases) {
  std::optional<BreakEven> cheapest;
  for (BreakEven& each : breakEvens(purchases)) {
    if (each.unlock.currency != app.currency) continue;
    if (cheapest && *each.unlock.price >= *cheapest->unlock.price) continue;
    cheapest = std::move(each);
  }
  return cheapest;
}

}  // namespace

SubscriptionCost subscriptionCost(const ITunesApp& app, std::span<const InAppPurchase> purchases) {
  const std::string currency = app.currency.value_or("");
  SubscriptionCost cost;
  for (const InAppPurchase& purchase : purchases) {
    if (!purchase.isSubscription) continue;
    cost.sold = true;
    const auto perYear = pricePerYear(purchase);
    if (!perYear || purchase.currency.value_or(currency) != currency) continue;
    cost.cheapestPerYear = std::min(cost.cheapestPerYear.value_or(*perYear), *perYear);
  }
  return cost;
}

std::optional<double> firstYearCost(const ITunesApp& app,
                                    std::span<const InAppPurchase> purchases) {
  const SubscriptionCost subscription = subscriptionCost(app, purchases);
  if (!app.price || (subscription.sold && !subscription.cheapestPerYear)) return {};
  return *app.price + subscription.cheapestPerYear.value_or(0);
}

std::optional<CostOfUse> costOfUse(const ITunesApp& app, std::span<const InAppPurchase> purchases,
                                   int years) {
  if (!firstYearCost(app, purchases)) return {};
  const double subscribed = subscriptionCost(app, purchases).cheapestPerYear.value_or(0) * years;
  std::optional<BreakEven> unlock = cheapestUnlock(app, purchases);
  if (!unlock || *unlock->unlock.price >= subscribed) return CostOfUse{*app.price + subscribed, {}};
  const double total = *app.price + *unlock->unlock.price;
  return CostOfUse{total, std::move(unlock)};
}

}  // namespace quillet
