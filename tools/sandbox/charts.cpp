// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/charts.h"

#include <algorithm>

#include "sandbox/random.h"

namespace quillet::sandbox {

namespace {

bool isIn(Chart chart, const AppSketch& app) {
  switch (chart) {
    case Chart::topFree: return app.usCents == 0;
    case Chart::topPaid: return app.usCents > 0;
    case Chart::topGrossing: break;
  }
  return app.usCents > 0 || !app.purchases.empty();
}

/// A sequence of its own for each chart and day.
Random shakes(std::chrono::sys_days day, const ChartQuery& query) {
  const auto when = static_cast<std::uint64_t>(day.time_since_epoch().count());
  const auto which = static_cast<std::uint64_t>(query.genre) * 1000 +
                     static_cast<std::uint64_t>(query.storefront) * 10 +
                     static_cast<std::uint64_t>(query.shelf);
  return Random(mixed(mixed(when, which), static_cast<std::uint64_t>(query.chart)));
}

}  // namespace

std::vector<AppNumber> chartMembers(const SampleStore& store, const ChartQuery& query) {
  const int genre = query.genre == kAllGenres ? 0 : query.genre;
  return store.bestKnown(query.shelf, query.storefront, genre, kLongestChart,
                         [&](const AppSketch& app) { return isIn(query.chart, app); });
}

std::vector<AppNumber> orderOn(std::chrono::sys_days day, const ChartQuery& query,
                               std::vector<AppNumber> members) {
  Random random = shakes(day, query);
  for (std::size_t i = 1; i < members.size(); ++i) {
    if (random.oneIn(3)) std::swap(members[i - 1], members[i]);
  }
  return members;
}

std::vector<AppNumber> chartOf(const SampleStore& store, const ChartQuery& query) {
  return orderOn(store.today(), query, chartMembers(store, query));
}

}  // namespace quillet::sandbox
