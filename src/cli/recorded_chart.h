// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "library/schema/chart_key.h"
#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

/// The order of a chart on a recorded day.
struct RecordedChart {
  Instant day;
  std::vector<std::int64_t> trackIds;
};

/// Which chart of the whole store the library recorded, and before which day.
struct RecordedChartQuery {
  ChartType chart = ChartType::topFree;
  Platform platform = Platform::mac;
  std::string storefront;
  Instant before;
};

/// The latest order recorded before a day; absent where there is none.
using RecordedChartReader = std::function<std::optional<RecordedChart>(const RecordedChartQuery&)>;

}  // namespace quillet
