// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/schema/entities.h"
#include "library/write_transaction.h"
#include "store/chart_query.h"

namespace quillet {

/// The order of a chart as it was seen once.
struct SeenChart {
  ChartQuery chart;
  std::vector<std::int64_t> trackIds;
  Instant when{};
  Instant day{};  ///< the start of its day
};

/// Under which key orders of the chart are kept.
[[nodiscard]] std::string chartKey(const ChartQuery& chart);
/// Whether a daily record of the chart is kept: of the free and the paid one of the whole store.
[[nodiscard]] bool isRecordedDaily(const ChartQuery& chart);
/// The record of that day, of a chart that is recorded daily.
[[nodiscard]] ChartSnapshot snapshotOf(const SeenChart& seen);

[[nodiscard]] bool isRecorded(SQLite::Database& database, const std::string& chartKey, Instant day);

/// The latest snapshot of a day before `day`.
[[nodiscard]] std::optional<ChartSnapshot> snapshotBefore(SQLite::Database& database,
                                                          const std::string& chartKey, Instant day);

/// All snapshots of a chart, in the order of their days.
[[nodiscard]] std::vector<ChartSnapshot> snapshotsOf(SQLite::Database& database,
                                                     const std::string& chartKey);

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

/// The order of a chart when somebody looked at it, and when.
struct ChartLook {
  std::vector<std::int64_t> trackIds;
  Instant when{};
};

/// Keeps what was seen as a look at the chart. Of several on one day the first counts, so that a
/// second one has something to be compared with.
void noteLook(WriteTransaction& transaction, const SeenChart& seen);
/// The last look at the chart on a day before `day`.
[[nodiscard]] std::optional<ChartLook> lookBefore(SQLite::Database& database,
                                                  const std::string& chartKey, Instant day);

}  // namespace quillet
