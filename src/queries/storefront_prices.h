// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/query_call.h"
#include "store/records/itunes_app.h"

namespace quillet {

struct StorefrontPrice {
  std::string country;
  std::optional<ITunesApp> app;  ///< the storefront's record; absent where it does not sell the app
};

/// The records by storefront, of those that have answered; absent where it does not sell the app.
using StorefrontAnswers = std::shared_ptr<std::map<std::string, std::optional<ITunesApp>>>;
[[nodiscard]] StorefrontAnswers noStorefrontAnswers();

/// Asks each of the tracked storefronts for the app, one request each, and answers in their order.
/// Tells how many have answered. Throws what lookups throw, once all have ended; who asks again
/// with the same `answered`, of one app alone, asks only those that are not in it.
Task<std::vector<StorefrontPrice>> readStorefrontPrices(
    std::int64_t trackId, QueryServices services, QueryCall call,
    StorefrontAnswers answered = noStorefrontAnswers());

}  // namespace quillet
