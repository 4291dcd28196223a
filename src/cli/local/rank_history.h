// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "cli/local/local_call.h"

namespace quillet {

/// A day on which a chart was recorded, and the app's place in it.
struct CLIRankPoint {
  Instant date;
  std::optional<std::int64_t> rank;  ///< absent where the app was not placed
};

/// One chart in which the app was placed.
struct CLIDailyRanks {
  std::string chart;  ///< the word that `charts` takes, where it is known
  std::string platform;
  std::size_t daysPlaced = 0;      ///< at least 1
  std::int64_t best = 0;           ///< the smallest rank
  std::int64_t latest = 0;         ///< on the last day with a place
  std::vector<CLIRankPoint> days;  ///< every recorded day, by date
};

/// A place that was seen when the app's page was opened.
struct CLIObservedRank {
  std::optional<std::string> chart;      ///< as the store names it
  std::optional<std::string> genreName;  ///< absent for the chart of all categories
  std::int64_t position = 0;
  std::optional<Instant> date;
};

struct CLIRankHistoryPayload {
  std::int64_t trackId = 0;
  std::optional<std::string> name;  ///< absent where the library does not hold it
  std::string country;
  std::size_t recordedCharts = 0;  ///< how many charts are recorded, with the app or without
  Instant recordedFrom;            ///< the first recorded day
  std::vector<CLIDailyRanks> daily;
  std::vector<CLIObservedRank> observed;
};

/// `quillet rank-history`. Throws CLIError, not found, where nothing is known of the app's ranks.
[[nodiscard]] CLIRankHistoryPayload readRankHistory(const LocalCall& call);

/// Whether the store must be asked for the name of the app that `rank-history` is about. False
/// where the command fails before that matters.
[[nodiscard]] bool lacksRankedName(const LocalCall& call);

[[nodiscard]] std::string renderRankHistoryJson(const CLIRankHistoryPayload& payload);

}  // namespace quillet
