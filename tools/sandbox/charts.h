// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/enum_table.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

enum class Chart { topFree, topPaid, topGrossing };

inline constexpr EnumTable<Chart, 3> kChartWords{{
    {Chart::topFree, "top-free"},
    {Chart::topPaid, "top-paid"},
    {Chart::topGrossing, "top-grossing"},
}};
static_assert(isComplete(kChartWords, Chart::topGrossing));

/// As far as charts go.
inline constexpr std::size_t kLongestChart = 200;

/// Stands for all categories in addresses.
inline constexpr int kAllGenres = 36;

struct ChartQuery {
  Chart chart = Chart::topFree;
  Shelf shelf = Shelf::mac;
  Storefront storefront = Storefront::us;
  int genre = kAllGenres;
};

/// The apps that a chart holds, by their fame.
[[nodiscard]] std::vector<AppNumber> chartMembers(const SampleStore& store,
                                                  const ChartQuery& query);

/// Their order on a day: neighbours change places from day to day.
[[nodiscard]] std::vector<AppNumber> orderOn(std::chrono::sys_days day, const ChartQuery& query,
                                             std::vector<AppNumber> members);

/// The apps of a chart in their order of today.
[[nodiscard]] std::vector<AppNumber> chartOf(const SampleStore& store, const ChartQuery& query);

}  // namespace quillet::sandbox
