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
Random shakes(const SampleStore& store, const ChartQuery& query) {
  const auto day = static_cast<std::uint64_t>(store.today().time_since_epoch().count());
  const auto which = static_cast<std::uint64_t>(query.genre) * 1000 +
                     static_cast<std::uint64_t>(query.storefront) * 10 +
                     static_cast<std::uint64_t>(query.shelf);
  return Random(mixed(mixed(day, which), static_cast<std::uint64_t>(query.chart)));
}

}  // namespace

std::vector<AppNumber> chartOf(const SampleStore& store, const ChartQuery& query) {
  const int genre = query.genre == kAllGenres ? 0 : query.genre;
  std::vector<AppNumber> apps =
      store.bestKnown(query.shelf, query.storefront, genre, kLongestChart,
                      [&](const AppSketch& app) { return isIn(query.chart, app); });
  Random random = shakes(store, query);
  for (std::size_t i = 1; i < apps.size(); ++i) {
    if (random.oneIn(3)) std::swap(apps[i - 1], apps[i]);
  }
  return apps;
}

}  // namespace quillet::sandbox
