// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/enum_table.h"

namespace quillet {

// Scripts read these words; never change.
enum class ChartMovement { up, down, same, isNew };
inline constexpr EnumTable<ChartMovement, 4> kChartMovementWords{{
    {ChartMovement::up, "up"},
    {ChartMovement::down, "down"},
    {ChartMovement::same, "same"},
    {ChartMovement::isNew, "new"},
}};
static_assert(isComplete(kChartMovementWords, ChartMovement::isNew));

/// How a place in a chart differs from the app's place on an earlier day.
struct PlaceChange {
  ChartMovement movement = ChartMovement::isNew;
  std::optional<std::int64_t> previousRank;  ///< absent for an app that was not in the chart
  std::optional<std::int64_t> change;        ///< places, upwards positive; absent likewise

  friend bool operator==(const PlaceChange&, const PlaceChange&) = default;
};

/// The order of a chart on an earlier day, to compare with.
class EarlierChart {
 public:
  /// `trackIds` in the chart's order; of an ID that stands there twice the first place counts.
  explicit EarlierChart(const std::vector<std::int64_t>& trackIds);

  /// `rank`: the place now, from 1.
  [[nodiscard]] PlaceChange changeOf(std::int64_t trackId, std::size_t rank) const;

 private:
  std::unordered_map<std::int64_t, std::int64_t> places_;
};

}  // namespace quillet
