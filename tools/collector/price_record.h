// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "collector/observed_app.h"
#include "collector/sql_database.h"
#include "publisher/price_files.h"

namespace quillet {

// What is kept of prices: each app's first one and every other that followed, with the moment of
// the round that saw it. Nothing is written for an app that is as it was.

/// Records what one answer of a storefront said, and returns how many prices changed. A first price
/// is no change. An answer that is older than what is known (the store's caches hand such out now
/// and then) is left aside; with another currency an app's prices begin anew. `apps` holds each app
/// at most once.
std::int64_t recordPrices(SqlTransaction& transaction, const std::string& country,
                          const std::vector<ObservedApp>& apps, Instant now);

/// Every app that is recorded in any storefront, by track ID.
[[nodiscard]] std::vector<std::int64_t> recordedIds(SqlTransaction& transaction);

/// When anything that is published of the storefront last changed, to the second; absent for one
/// that was never asked.
[[nodiscard]] std::optional<Instant> stampOf(SqlTransaction& transaction,
                                             const std::string& country);

/// Calls `visit` for each app of the storefront whose price ever changed, by track ID.
void eachMovedApp(SqlTransaction& transaction, const std::string& country,
                  const std::function<void(RecordedApp)>& visit);

}  // namespace quillet
