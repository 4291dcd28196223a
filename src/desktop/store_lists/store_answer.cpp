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

}  // namespace

StoreAsk askOf(const StoreQuery& query, const std::string& storefront) {
  const SearchRequest& request = query.request;
  StoreAsk ask{{}, request.platform, request.country.value_or(storefront), 0};
  if (query.developer) {
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
