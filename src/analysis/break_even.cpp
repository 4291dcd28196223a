// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/break_even.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "analysis/purchase_cost.h"
#include "analysis/purchase_kind.h"

namespace quillet {

namespace {

constexpr double kMonthsPerYear = 12;
constexpr double kMonthsWorthSaying = 120;

/// Null where none in that currency costs anything; of equally cheap ones the first.
const InAppPurchase* cheapestSubscription(std::span<const InAppPurchase> purchases,
                                          const std::string& currency) {
  const InAppPurchase* cheapest = nullptr;
  double lowest = 0;
  for (const InAppPurchase& purchase : purchases) {
    const double perYear = pricePerYear(purchase).value_or(0);
    if (perYear <= 0 || purchase.currency != currency) continue;
    if (cheapest && perYear >= lowest) continue;
    cheapest = &purchase;
    lowest = perYear;
  }
  return cheapest;
}

/// Rounded up to whole months, at least one.
std::optional<int> monthsUntilCheaper(double unlockPrice, double perYear) {
  // 56.97 against 18.99 a year comes out a hair above 36, which must not become 37.
  constexpr double kRoundingSlack = 1e-12;
  const double months = unlockPrice / (perYear / kMonthsPerYear) * (1 - kRoundingSlack);
  if (months > kMonthsWorthSaying) return {};
  return std::max(1, static_cast<int>(std::ceil(months)));
}

bool isComparable(const InAppPurchase& purchase) {
  return purchaseKind(purchase) == PurchaseKind::unlock && purchase.price.value_or(0) > 0 &&
         purchase.currency;
}

}  // namespace

std::vector<BreakEven> breakEvens(std::span<const InAppPurchase> purchases) {
  std::vector<BreakEven> result;
  for (const InAppPurchase& unlock : purchases) {
    if (!isComparable(unlock)) continue;
    const InAppPurchase* subscription = cheapestSubscription(purchases, *unlock.currency);
    if (!subscription) continue;
    const auto months = monthsUntilCheaper(*unlock.price, *pricePerYear(*subscription));
    result.push_back({unlock, *subscription, months});
  }
  return result;
}

std::string breakEvenSentence(const BreakEven& breakEven) {
  const std::string& unlock = breakEven.unlock.name;
  const std::string& subscription = breakEven.subscription.name;
  if (!breakEven.months) {
    return fmt::format("{} never costs less than {} within ten years.", unlock, subscription);
  }
  return fmt::format("{} costs less than {} after {} month{}.", unlock, subscription,
                     *breakEven.months, *breakEven.months == 1 ? "" : "s");
}

}  // namespace quillet
