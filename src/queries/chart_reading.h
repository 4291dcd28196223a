// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "queries/app_examination.h"

namespace quillet {

/// Apps of a chart that passed, in its order.
struct ChartReading {
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> ranks;  ///< the place of each in the chart, from 1
  std::size_t scanned = 0;         ///< how many of the chart's apps were examined
};

/// Reads a chart and keeps the first of its apps that pass, as examine() does; they are looked up
/// no further than it takes, and those that the storefront does not know are passed over. Tells how
/// many places were looked up, and then of the catalog. `watch` is told of places, from 0, in the
/// place of positions. Throws what the charts, lookups and the catalog throw.
Task<ChartReading> readChart(ChartQuery chart, ExaminationCriteria criteria, QueryServices services,
                             QueryCall call, RowWatch watch);

}  // namespace quillet
