// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "base/enum_table.h"
#include "store/records/platform.h"

namespace quillet {

enum class ChartType { topFree, topPaid, topGrossing };

// Stored; never change.
inline constexpr EnumTable<ChartType, 3> kChartTypeTexts{{
    {ChartType::topFree, "topFree"},
    {ChartType::topPaid, "topPaid"},
    {ChartType::topGrossing, "topGrossing"},
}};
static_assert(isComplete(kChartTypeTexts, ChartType::topGrossing));

inline constexpr EnumTable<ChartType, 3> kChartTypeWords{{
    {ChartType::topFree, "top-free"},
    {ChartType::topPaid, "top-paid"},
    {ChartType::topGrossing, "top-grossing"},
}};
static_assert(isComplete(kChartTypeWords, ChartType::topGrossing));

/// As people call them.
inline constexpr EnumTable<ChartType, 3> kChartTypeNames{{
    {ChartType::topFree, "Top free"},
    {ChartType::topPaid, "Top paid"},
    {ChartType::topGrossing, "Top grossing"},
}};
static_assert(isComplete(kChartTypeNames, ChartType::topGrossing));

/// Whether Apple publishes such a chart of the platform.
[[nodiscard]] constexpr bool isPublished(ChartType chart, Platform platform) {
  return chart != ChartType::topGrossing || platform != Platform::mac;
}
/// Why the one that it does not publish is not offered.
inline constexpr std::string_view kNoMacGrossing =
    "Apple publishes no Mac top grossing chart. Its Mac grossing feed returns the iPhone chart, so "
    "Quillet does not offer it.";

}  // namespace quillet
