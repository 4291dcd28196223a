// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/rank_record.h"
#include "base/dates.h"
#include "cli/local/local_call.h"

namespace quillet {

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
  std::vector<ChartRanks> daily;   ///< those in which the app was placed
  std::vector<CLIObservedRank> observed;
};

/// `quillet rank-history`. Throws CLIError, not found, where nothing is known of the app's ranks.
[[nodiscard]] CLIRankHistoryPayload readRankHistory(const LocalCall& call);

[[nodiscard]] std::string renderRankHistoryJson(const CLIRankHistoryPayload& payload);

}  // namespace quillet
