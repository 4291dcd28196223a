// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/chart_orders.h"

#include "library/row_sets.h"
#include "library/schema/chart_key.h"

namespace quillet {

std::string chartKey(const ChartQuery& chart) {
  return chartKey(chart.platform, chart.chart, chart.storefront,
                  chart.genreId.value_or(kWholeStoreGenre));
}

bool isRecordedDaily(const ChartQuery& chart) {
  return !chart.genreId && chart.chart != ChartType::topGrossing;
}

ChartSnapshot snapshotOf(const SeenChart& seen) {
  ChartSnapshot snapshot;
  snapshot.chartKey = chartKey(seen.chart);
  snapshot.platformRaw = textOf(kPlatformWords, seen.chart.platform);
  snapshot.chartRaw = textOf(kChartTypeTexts, seen.chart.chart);
  snapshot.country = seen.chart.storefront;
  snapshot.genreId = kWholeStoreGenre;
  snapshot.day = seen.day;
  snapshot.capturedAt = seen.when;
  snapshot.trackIds = seen.trackIds;
  if (snapshot.trackIds.size() > kRecordedPlaces) snapshot.trackIds.resize(kRecordedPlaces);
  return snapshot;
}

bool isRecorded(SQLite::Database& database, const std::string& chartKey, Instant day) {
  SQLite::Statement statement(database,
                              "SELECT 1 FROM ZCHARTSNAPSHOT WHERE ZCHARTKEY = ?1 AND ZDAY = ?2");
  return hasRow(statement, chartKey, day);
}

std::optional<ChartSnapshot> snapshotBefore(SQLite::Database& database, const std::string& chartKey,
                                            Instant day) {
  return selectRow<ChartSnapshot>(
      database, "WHERE ZCHARTKEY = ?1 AND ZDAY < ?2 ORDER BY ZDAY DESC LIMIT 1", chartKey, day);
}

std::vector<ChartSnapshot> snapshotsOf(SQLite::Database& database, const std::string& chartKey) {
  return selectRows<ChartSnapshot>(database, "WHERE ZCHARTKEY = ?1 ORDER BY ZDAY", chartKey);
}

std::optional<ChartCache> cachedChart(SQLite::Database& database, const std::string& key) {
  return selectRow<ChartCache>(database, "WHERE ZKEY = ?1", key);
}

std::vector<std::int64_t> chartedApps(SQLite::Database& database, const std::string& country) {
  std::vector<std::int64_t> apps;
  const auto add = [&](const auto& charts) {
    for (const auto& chart : charts)
      apps.insert(apps.end(), chart.trackIds.begin(), chart.trackIds.end());
  };
  add(selectRows<ChartSnapshot>(database,
                                "AS S WHERE ZCOUNTRY = ?1 AND ZDAY = (SELECT max(ZDAY) FROM "
                                "ZCHARTSNAPSHOT WHERE ZCHARTKEY = S.ZCHARTKEY)",
                                country));
  add(selectRows<ChartCache>(database, "WHERE ZKEY LIKE 'chart-%-%-' || ?1 || '-%'", country));
  return apps;
}

void addSnapshots(WriteTransaction& transaction, const std::vector<ChartSnapshot>& snapshots) {
  RowInserter<ChartSnapshot> inserter(transaction.database, OnConflict::skip);
  for (const ChartSnapshot& snapshot : snapshots) {
    if (inserter.insert(snapshot)) transaction.changes.charts.insert(snapshot.chartKey);
  }
}

void cacheChart(WriteTransaction& transaction, const std::string& key,
                const std::vector<std::int64_t>& trackIds, Instant when) {
  transaction.changes.charts.insert(key);
  auto row = cachedChart(transaction.database, key);
  if (!row) {
    insertRow(transaction.database, ChartCache{0, key, trackIds, when, {}, {}});
    return;
  }
  row->previousTrackIds = std::exchange(row->trackIds, trackIds);
  row->previousUpdatedAt = std::exchange(row->updatedAt, when);
  updateRow(transaction.database, *row);
}

void noteLook(WriteTransaction& transaction, const SeenChart& seen) {
  const std::string key = chartKey(seen.chart);
  const auto last = cachedChart(transaction.database, key);
  if (!last || last->updatedAt < seen.day) cacheChart(transaction, key, seen.trackIds, seen.when);
}

std::optional<ChartLook> lookBefore(SQLite::Database& database, const std::string& chartKey,
                                    Instant day) {
  auto cached = cachedChart(database, chartKey);
  if (!cached) return {};
  if (cached->updatedAt < day) return ChartLook{std::move(cached->trackIds), cached->updatedAt};
  if (cached->previousUpdatedAt.value_or(day) >= day) return {};
  return ChartLook{std::move(cached->previousTrackIds), *cached->previousUpdatedAt};
}

}  // namespace quillet
