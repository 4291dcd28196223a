// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/chart_movement.h"
#include "analysis/filters.h"
#include "cli/online/app/app_summary.h"
#include "cli/recorded_chart.h"
#include "cli/streams.h"
#include "store/records/app_genre.h"
#include "system/time_zone.h"

namespace quillet {

/// One place of a chart, and how it differs from the place on an earlier day.
struct CLIChartEntry {
  std::size_t rank = 0;              ///< from 1
  std::optional<PlaceChange> moved;  ///< absent without an earlier day
  CLIAppSummary app;
};

/// The answer to `charts`: the request as it was understood, and the chart.
struct CLIChartPayload {
  struct Query {
    ChartType chart = ChartType::topFree;
    Platform platform = Platform::mac;
    std::string country;
    const AppGenre* genre = nullptr;  ///< null for the chart of all categories
    std::size_t limit = 0;
    std::size_t scanned = 0;  ///< how many of the chart's apps were examined
    SortOrder sort = SortOrder::relevance;
    AppFilters filters;
  };

  Query query;
  std::optional<Instant> movementSince;  ///< the day that movement is measured against
  std::vector<CLIChartEntry> results;
};

[[nodiscard]] std::string renderChartJson(const CLIChartPayload& payload);

/// A header and an aligned table that fits the style's width. Days are those of `zone`.
[[nodiscard]] std::string renderChartText(const CLIChartPayload& payload,
                                          const LocaleFormats& formats, const UtcOffsetAt& zone,
                                          const TextStyle& style);

}  // namespace quillet
