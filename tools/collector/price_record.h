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

/// How long an app's prices follow the one of its records, the Mac's or the iOS one, that they
/// began with, while the store answers with the other.
inline constexpr std::chrono::days kFaithToKind{14};

/// Records what one answer of a storefront said, and returns how many prices changed. A first price
/// is no change. An answer that is older than what is known (the store's caches hand such out now
/// and then) is left aside, and so is one about the app's other record; with another currency an
/// app's prices begin anew. `apps` holds each app at most once.
std::int64_t recordPrices(SqlTransaction& transaction, const std::string& country,
                          const std::vector<ObservedApp>& apps, Instant now);

/// Records that an answer of the storefront did not have these.
void recordMissing(SqlTransaction& transaction, const std::string& country,
                   const std::vector<std::int64_t>& ids, Instant now);

/// Records that the store answered a lookup of the storefront.
void noteLook(SqlTransaction& transaction, const std::string& country, Instant now);

/// When it last did so; absent where that is not known.
[[nodiscard]] std::optional<Instant> lookOf(SqlTransaction& transaction,
                                            const std::string& country);

/// How many of the apps are recorded as sold in the storefront.
[[nodiscard]] std::int64_t soldAmong(SqlTransaction& transaction, const std::string& country,
                                     const std::vector<std::int64_t>& ids);

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
