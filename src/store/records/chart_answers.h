// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "store/records/chart_type.h"

namespace quillet {

/// The track IDs of a chart, in its order, from the store's chart page; empty where they could not
/// be read. The page knows the free and the paid chart alone.
[[nodiscard]] std::vector<std::int64_t> decodeChartPage(std::string_view html, ChartType chart);

/// Likewise from a chart's feed. An entry without a readable ID is left out. Throws DecodingError
/// when `body` is no feed.
[[nodiscard]] std::vector<std::int64_t> decodeChartFeed(const std::string& body);

}  // namespace quillet
