// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/rank_record.h"

#include <algorithm>
#include <string_view>

#include "store/records/chart_type.h"

namespace quillet {

namespace {

template <typename Table>
std::size_t placeIn(const Table& table, std::string_view text) {
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.text == text; });
  return static_cast<std::size_t>(found - table.begin());
}

void addDay(ChartRanks& ranks, const RecordedRanking& ranking, std::int64_t trackId) {
  DailyRank& day = ranks.days.emplace_back(DailyRank{ranking.day, {}});
  const auto found = std::find(ranking.trackIds.begin(), ranking.trackIds.end(), trackId);
  if (found == ranking.trackIds.end()) return;
  const std::int64_t rank = found - ranking.trackIds.begin() + 1;
  day.rank = ranks.latest = rank;
  ranks.best = ranks.daysPlaced == 0 ? rank : std::min(ranks.best, rank);
  ++ranks.daysPlaced;
}

}  // namespace

void RankRecord::add(const RecordedRanking& ranking) {
  if (charts_.empty()) first_ = ranking.day;
  ChartRanks& ranks = charts_[{placeIn(kPlatformWords, ranking.platform), ranking.platform,
                               placeIn(kChartTypeTexts, ranking.chart), ranking.chart}];
  ranks.platform = ranking.platform;
  ranks.chart = ranking.chart;
  addDay(ranks, ranking, trackId_);
}

std::vector<ChartRanks> RankRecord::placed(std::optional<Platform> platform) const {
  std::vector<ChartRanks> result;
  for (const auto& [key, ranks] : charts_) {
    const bool isAskedFor = !platform || ranks.platform == textOf(kPlatformWords, *platform);
    if (isAskedFor && ranks.daysPlaced > 0) result.push_back(ranks);
  }
  return result;
}

}  // namespace quillet
