// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/chart_record.h"

#include <algorithm>

namespace quillet {

ChartRecord::ChartRecord(const std::vector<ChartDay>& days) {
  for (const ChartDay& each : days) {
    const std::size_t day = days_.size();
    days_.push_back(each.day);
    for (std::size_t i = 0; i < each.trackIds.size(); ++i) {
      std::vector<Placed>& placed = placed_[each.trackIds[i]];
      const bool isThere = !placed.empty() && placed.back().day == day;
      if (!isThere) placed.push_back({day, static_cast<std::int64_t>(i) + 1});
    }
  }
}

std::optional<std::int64_t> ChartRecord::bestOf(std::int64_t trackId) const {
  const auto found = placed_.find(trackId);
  if (found == placed_.end()) return {};
  return std::ranges::min_element(found->second, {}, &Placed::rank)->rank;
}

std::optional<Instant> ChartRecord::firstOf(std::int64_t trackId) const {
  const auto found = placed_.find(trackId);
  if (found == placed_.end()) return {};
  return days_[found->second.front().day];
}

std::vector<DailyRank> ChartRecord::ranksOf(std::int64_t trackId, std::size_t most) const {
  const auto found = placed_.find(trackId);
  const std::size_t first = days_.size() - std::min(most, days_.size());
  if (found == placed_.end() || found->second.back().day < first) return {};
  std::vector<DailyRank> ranks;
  for (std::size_t day = first; day < days_.size(); ++day) ranks.push_back({days_[day], {}});
  for (const Placed& each : found->second) {
    if (each.day >= first) ranks[each.day - first].rank = each.rank;
  }
  return ranks;
}

}  // namespace quillet
