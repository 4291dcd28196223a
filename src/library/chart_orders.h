// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/schema/entities.h"
#include "library/write_transaction.h"

namespace quillet {

[[nodiscard]] bool isRecorded(SQLite::Database& database, const std::string& chartKey, Instant day);

/// The latest snapshot of a day before `day`.
[[nodiscard]] std::optional<ChartSnapshot> snapshotBefore(SQLite::Database& database,
                                                          const std::string& chartKey, Instant day);

/// The order last fetched, and the one before.
[[nodiscard]] std::optional<ChartCache> cachedChart(SQLite::Database& database,
                                                    const std::string& key);

/// The apps of all charts of a storefront as they were recorded or fetched last, in no order; some
/// more than once.
[[nodiscard]] std::vector<std::int64_t> chartedApps(SQLite::Database& database,
                                                    const std::string& country);

/// Adds those snapshots whose chart is not recorded yet on their day.
void addSnapshots(WriteTransaction& transaction, const std::vector<ChartSnapshot>& snapshots);

/// Makes `trackIds` the chart's order, and the present one its previous order.
void cacheChart(WriteTransaction& transaction, const std::string& key,
                const std::vector<std::int64_t>& trackIds, Instant when);

}  // namespace quillet
