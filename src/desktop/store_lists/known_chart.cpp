// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/known_chart.h"

#include <algorithm>

#include "library/schema/chart_key.h"

namespace quillet {

namespace {

constexpr std::size_t kLineDays = 60;
constexpr std::int64_t kBelowAll = kRecordedPlaces + 1;

std::vector<ChartDay> daysOf(std::vector<ChartSnapshot> snapshots) {
  std::vector<ChartDay> days;
  for (ChartSnapshot& each : snapshots) days.push_back({each.day, std::move(each.trackIds)});
  return days;
}

KnownChart readDaily(SQLite::Database& database, const ChartQuery& chart, Instant day) {
  const std::vector<ChartDay> days = daysOf(snapshotsOf(database, chartKey(chart)));
  KnownChart known{true, ChartRecord(days)};
  const auto today = std::ranges::lower_bound(days, day, {}, &ChartDay::day);
  if (today == days.begin()) return known;
  known.since = std::prev(today)->day;
  known.earlier = EarlierChart(std::prev(today)->trackIds);
  return known;
}

}  // namespace

std::optional<PlaceChange> KnownChart::changeOf(std::int64_t trackId, std::size_t rank) const {
  if (!since) return {};
  return earlier.changeOf(trackId, rank);
}

std::optional<std::int64_t> KnownChart::bestOf(std::int64_t trackId, std::size_t rank) const {
  const auto first = record.firstOf(trackId);
  if (!first || !since || *first > *since) return {};
  return std::min(*record.bestOf(trackId), static_cast<std::int64_t>(rank));
}

KnownChart readKnownChart(SQLite::Database& database, const ChartQuery& chart, Instant day) {
  if (isRecordedDaily(chart)) return readDaily(database, chart, day);
  KnownChart known;
  if (const auto look = lookBefore(database, chartKey(chart), day)) {
    known.since = look->when;
    known.earlier = EarlierChart(look->trackIds);
  }
  return known;
}

void noteSeenChart(WriteTransaction& transaction, const SeenChart& seen, bool isRecorded) {
  if (seen.trackIds.empty()) return;
  if (!isRecordedDaily(seen.chart)) return noteLook(transaction, seen);
  if (isRecorded) addSnapshots(transaction, {snapshotOf(seen)});
}

RowExtras rankLine(const KnownChart& chart, std::int64_t trackId, std::size_t rank) {
  RowExtras line{{}, true};
  const std::vector<DailyRank> days = chart.record.ranksOf(trackId, kLineDays);
  for (std::size_t i = 0; i < days.size(); ++i) {
    const double moment = static_cast<double>(i) / static_cast<double>(days.size());
    line.line.push_back({moment, static_cast<double>(days[i].rank.value_or(kBelowAll))});
  }
  if (!line.line.empty())
    line.line.push_back(
        {1, static_cast<double>(std::min(static_cast<std::int64_t>(rank), kBelowAll))});
  return line;
}

}  // namespace quillet
