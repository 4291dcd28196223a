// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
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

/// Asks each of the tracked storefronts for the app, one request each, and answers in their order.
/// Tells how many have answered. Throws what lookups throw, once all have ended.
Task<std::vector<StorefrontPrice>> readStorefrontPrices(std::int64_t trackId,
                                                        QueryServices services, QueryCall call);

}  // namespace quillet
