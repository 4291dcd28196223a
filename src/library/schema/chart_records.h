// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// One chart position of one app, seen when its page was opened.
struct RankPoint {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string chart;                     ///< as the store names it
  std::optional<std::string> genreName;  ///< absent for the overall chart
  std::int64_t position = 0;             ///< from 1
  Instant date{};

  friend bool operator==(const RankPoint&, const RankPoint&) = default;
};

template <>
inline constexpr auto kTable<RankPoint> = Table{
    "RankPoint", 1, KeyUse::reused,
    std::array<Index, 3>{Index{Index::Kind::plain, {"trackId", "country", "date"}}},
    std::tuple{attribute("trackId", &RankPoint::trackId), attribute("country", &RankPoint::country),
               attribute("chart", &RankPoint::chart), attribute("genreName", &RankPoint::genreName),
               attribute("position", &RankPoint::position), attribute("date", &RankPoint::date)}};

/// The order of one chart on one day.
struct ChartSnapshot {
  RowId id = 0;
  std::string chartKey;  ///< one snapshot per key and day
  std::string platformRaw;
  std::string chartRaw;
  std::string country;
  std::int64_t genreId = 0;  ///< 0 for the overall chart
  Instant day{};             ///< the start of the day that it stands for
  Instant capturedAt{};
  std::vector<std::int64_t> trackIds;  ///< in rank order

  friend bool operator==(const ChartSnapshot&, const ChartSnapshot&) = default;
};

template <>
inline constexpr auto kTable<ChartSnapshot> = Table{
    "ChartSnapshot", 1, KeyUse::reused,
    std::array<Index, 3>{Index{Index::Kind::unique, {"chartKey", "day"}},
                         Index{Index::Kind::plain, {"country", "genreId", "day"}}},
    std::tuple{attribute("chartKey", &ChartSnapshot::chartKey),
               attribute("platformRaw", &ChartSnapshot::platformRaw),
               attribute("chartRaw", &ChartSnapshot::chartRaw),
               attribute("country", &ChartSnapshot::country),
               attribute("genreId", &ChartSnapshot::genreId), attribute("day", &ChartSnapshot::day),
               attribute("capturedAt", &ChartSnapshot::capturedAt),
               attribute("trackIds", &ChartSnapshot::trackIds)}};

/// The last fetched order of a chart and the one before it, to show what moved.
struct ChartCache {
  RowId id = 0;
  std::string key;
  std::vector<std::int64_t> trackIds;
  Instant updatedAt{};
  std::vector<std::int64_t> previousTrackIds;
  std::optional<Instant> previousUpdatedAt;

  friend bool operator==(const ChartCache&, const ChartCache&) = default;
};

template <>
inline constexpr auto kTable<ChartCache> = Table{
    "ChartCache", 1, KeyUse::reused, std::array<Index, 3>{Index{Index::Kind::unique, {"key"}}},
    std::tuple{attribute("key", &ChartCache::key), attribute("trackIds", &ChartCache::trackIds),
               attribute("updatedAt", &ChartCache::updatedAt),
               attribute("previousTrackIds", &ChartCache::previousTrackIds),
               attribute("previousUpdatedAt", &ChartCache::previousUpdatedAt)}};

}  // namespace quillet
