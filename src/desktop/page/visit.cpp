// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/visit.h"

#include "library/cached_apps.h"
#include "library/recorded_history.h"

namespace quillet {

std::optional<RankPoint> rankPointOf(const DescribedApp& app, const AppKey& key, Instant when) {
  const std::optional<ChartPosition>& place = app.chartPosition;
  if (!place || place->chart.empty()) return {};
  RankPoint point{.trackId = key.trackId, .country = key.country, .chart = place->chart};
  if (!place->genreName.empty()) point.genreName = place->genreName;
  point.position = place->position;
  point.date = when;
  return point;
}

void keepVisit(WriteTransaction& transaction, const Visit& visit) {
  if (visit.step == Visit::Step::view) {
    recordView(transaction, visit.app, visit.when);
  } else {
    refreshCachedApps(transaction, {visit.app});
  }
  if (visit.rank && visit.step != Visit::Step::unnoted) addRankPoints(transaction, {*visit.rank});
}

}  // namespace quillet
