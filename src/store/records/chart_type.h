// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/enum_table.h"

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

}  // namespace quillet
