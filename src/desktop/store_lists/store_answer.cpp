// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/store_answer.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/store_links.h"
#include "base/text.h"
#include "queries/app_lookup.h"

namespace quillet {

namespace {

// As many as the service gives: filters and orders are ours.
constexpr std::size_t kLongestSearch = 200;

/// The app that the term names; absent where it is to be searched for.
std::optional<NamedApp> namedBy(const StoreAsk& ask) {
  if (ask.developer != 0) return {};
  if (auto trackId = trackIdInLink(ask.term))
    return NamedApp{std::move(*trackId), storefrontInLink(ask.term).value_or(ask.country),
                    ask.platform};
  if (!trackIdIn(ask.term) && !isBundleId(ask.term)) return {};
  return NamedApp{ask.term, ask.country, ask.platform};
}

/// Each app keeps its place, whatever the storefront does not know.
Task<FoundApps> askChart(StoreAsk ask, QueryServices services, QueryCall call) {
  const ChartQuery chart = chartOf(ask);
  std::vector<std::int64_t> ids = co_await services.charts.ids(chart, call.context);
  if (ids.size() > kWholeChart) ids.resize(kWholeChart);
  std::vector<RankedApp> ranked =
      co_await services.charts.apps(chart, ids, ChartPlaces(), call.context);
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> ranks;
  for (RankedApp& each : ranked) {
    apps.push_back(std::move(each.app));
    ranks.push_back(each.rank);
  }
  FoundApps found =
      foundApps(std::move(apps), std::move(ask.country), ask.platform, services.clock.now());
  found.ranks = std::move(ranks);
  found.chart = std::move(ids);
  co_return found;
}

}  // namespace

ChartQuery chartOf(const StoreAsk& ask) {
  return {ask.chart.value(), ask.platform, ask.country, ask.genreId};
}

StoreAsk askOf(const StoreQuery& query, const std::string& storefront) {
  const SearchRequest& request = query.request;
  StoreAsk ask;
  ask.platform = request.platform;
  ask.country = request.country.value_or(storefront);
  if (query.chart) {
    ask.chart = query.chart->type;
    ask.genreId = query.chart->genreId;
  } else if (query.developer) {
    ask.developer = query.developer->id;
  } else {
    ask.term = trimmed(request.query);
  }
  return ask;
}

bool isAsked(const StoreQuery& query) {
  return query.developer || query.chart || !trimmed(query.request.query).empty();
}

Task<FoundApps> askStore(StoreAsk ask, QueryServices services, QueryCall call) {
  if (ask.chart) {
    auto chart = co_await askChart(std::move(ask), services, std::move(call));
    co_return chart;
  }
  std::vector<ITunesApp> apps;
  std::string country = ask.country;
  if (const std::optional<NamedApp> named = namedBy(ask)) {
    std::optional<ITunesApp> app = co_await findApp(*named, services, call);
    if (app) {
      apps.push_back(std::move(*app));
      country = named->country;
    }
  }
  if (ask.developer != 0) {
    apps = co_await services.itunes.developerApps(ask.developer, ask.platform, ask.country,
                                                  call.context);
  } else if (apps.empty() && !trackIdInLink(ask.term)) {
    apps = co_await services.itunes.search(ask.term, ask.country, ask.platform, kLongestSearch,
                                           call.context, AppDetail::page);
  }
  co_return foundApps(std::move(apps), std::move(country), ask.platform, services.clock.now());
}

}  // namespace quillet
