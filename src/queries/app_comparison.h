// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "analysis/cost_of_use.h"
#include "queries/query_call.h"
#include "store/records/in_app_purchase.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// More would fit no screen, and no decision.
inline constexpr std::size_t kMostCompared = 8;

/// How the lookup of what an app sells ended.
enum class PurchaseCheck { done, rateLimited, failed };

/// What is sold inside an app, as far as it could be read.
struct SoldInside {
  PurchaseCheck check = PurchaseCheck::failed;
  std::vector<InAppPurchase> purchases;
  std::exception_ptr failure;  ///< what the lookup threw; null where the catalog lacks the app
};

struct ComparedApp {
  ITunesApp app;  ///< with what its list of purchases says of it, and the catalog's ratings
  SoldInside sold;
};

// What it costs; nothing is known of that where the lookup of what it sells did not end well.

[[nodiscard]] SubscriptionCost subscriptionCost(const ComparedApp& compared);
[[nodiscard]] std::optional<double> firstYearCost(const ComparedApp& compared);
[[nodiscard]] std::optional<CostOfUse> costOfUse(const ComparedApp& compared, int years);

struct AppComparison {
  std::vector<ComparedApp> apps;      ///< in the order asked for
  std::vector<std::int64_t> missing;  ///< IDs that the storefront does not have
  std::exception_ptr catalogFailure;  ///< a rate limit, else the first one; null: none
};

/// Reads apps to stand beside each other: one lookup, then what they sell and the ratings of Mac
/// apps, a catalog batch each. Throws what lookups throw; what the catalog does not give is unknown
/// in the answer. `trackIds` names each app once.
Task<AppComparison> readAppComparison(std::vector<std::int64_t> trackIds, std::string country,
                                      QueryServices services, QueryCall call);

}  // namespace quillet
