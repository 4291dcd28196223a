// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>

#include "analysis/break_even.h"
#include "store/records/in_app_purchase.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// What an app's subscriptions cost at least, in the currency of its price: a purchase without a
/// currency is sold in the app's, one in another currency cannot be compared.
struct SubscriptionCost {
  bool sold = false;                      ///< whether it sells any
  std::optional<double> cheapestPerYear;  ///< absent where none has a cost that can be compared
};

[[nodiscard]] SubscriptionCost subscriptionCost(const ITunesApp& app,
                                                std::span<const InAppPurchase> purchases);

/// The price and a year of the cheapest subscription, where there is one. Absent where either is
/// not known. Introductory offers are not known and not guessed.
[[nodiscard]] std::optional<double> firstYearCost(const ITunesApp& app,
                                                  std::span<const InAppPurchase> purchases);

/// What an app costs who uses it for some years.
struct CostOfUse {
  double total = 0;                 ///< its price included
  std::optional<BreakEven> unlock;  ///< to buy instead of the subscription, where that costs less
};

/// `years`: 1 or more. The price and the cheaper of two: the cheapest subscription for all years,
/// or the cheapest unlock that replaces it. An app without a subscription costs its price, whatever
/// else it sells. Absent where firstYearCost() is.
[[nodiscard]] std::optional<CostOfUse> costOfUse(const ITunesApp& app,
                                                 std::span<const InAppPurchase> purchases,
                                                 int years);

}  // namespace quillet
