// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/chart_movement.h"

namespace quillet {

namespace {

ChartMovement movementOf(std::int64_t change) {
  if (change == 0) return ChartMovement::same;
  return change > 0 ? ChartMovement::up : ChartMovement::down;
}

}  // namespace

EarlierChart::EarlierChart(const std::vector<std::int64_t>& trackIds) {
  for (std::size_t i = 0; i < trackIds.size(); ++i) {
    places_.try_emplace(trackIds[i], static_cast<std::int64_t>(i) + 1);
  }
}

PlaceChange EarlierChart::changeOf(std::int64_t trackId, std::size_t rank) const {
  const auto place = places_.find(trackId);
  if (place == places_.end()) return {};
  const std::int64_t change = place->second - static_cast<std::int64_t>(rank);
  return {movementOf(change), place->second, change};
}

}  // namespace quillet
