// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/charts_service.h"

#include <fmt/format.h>

#include <map>

#include "base/errors.h"
#include "store/records/chart_answers.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

struct Feed {
  ChartType chart;
  Platform platform;
  std::string_view name;
};

// There is a Mac grossing feed, but it holds the iPhone's chart.
constexpr Feed kFeeds[] = {
    {ChartType::topFree, Platform::mac, "topfreemacapps"},
    {ChartType::topFree, Platform::iphone, "topfreeapplications"},
    {ChartType::topFree, Platform::ipad, "topfreeipadapplications"},
    {ChartType::topPaid, Platform::iphone, "toppaidapplications"},
    {ChartType::topPaid, Platform::ipad, "toppaidipadapplications"},
    {ChartType::topGrossing, Platform::iphone, "topgrossingapplications"},
    {ChartType::topGrossing, Platform::ipad, "topgrossingipadapplications"},
};

const Feed* findFeed(const ChartQuery& query) {
  const auto* const feed = std::find_if(std::begin(kFeeds), std::end(kFeeds), [&](const Feed& f) {
    return f.chart == query.chart && f.platform == query.platform;
  });
  return feed == std::end(kFeeds) ? nullptr : feed;
}

/// The most entries that a feed gives.
int longest(Platform platform) { return platform == Platform::mac ? 200 : 100; }

/// The record of each ID. Where one ID is a Mac app's and an iOS app's, the chart's own is meant.
std::map<std::int64_t, ITunesApp> byId(std::vector<ITunesApp> apps, Platform platform) {
  std::map<std::int64_t, ITunesApp> records;
  for (ITunesApp& app : apps) {
    const bool fits = isMacApp(app) == (platform == Platform::mac);
    if (fits || !records.contains(app.trackId)) records[app.trackId] = std::move(app);
  }
  return records;
}

std::vector<std::int64_t> idsAt(const std::vector<std::int64_t>& ids, ChartPlaces places) {
  const std::size_t first = std::min(places.first, ids.size());
  const std::size_t last = first + std::min(places.count, ids.size() - first);
  const auto begin = ids.begin();
  return {begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last)};
}

}  // namespace

ChartsService::ChartsService(ITunesClient& itunes, ChartsPageScraper& pages, std::string address)
    : itunes_(itunes), pages_(pages), address_(std::move(address)) {}

Task<std::vector<std::int64_t>> ChartsService::ids(ChartQuery query, RequestContext context) {
  const bool hasFeed = findFeed(query) != nullptr;
  try {
    auto ids = co_await idsOrRefusal(std::move(query), std::move(context));
    co_return ids;
  } catch (const ITunesError& error) {
    if (hasFeed || !error.isRefusal()) throw;
  }
  throw ITunesError::emptyFeed();
}

Task<std::vector<std::int64_t>> ChartsService::idsOrRefusal(ChartQuery query,
                                                            RequestContext context) {
  if (query.chart != ChartType::topGrossing) {
    auto onPage = co_await idsOnPage(query, context);
    if (!onPage.empty()) co_return onPage;
  }
  auto inFeed = co_await idsInFeed(std::move(query), std::move(context));
  co_return inFeed;
}

/// Where no answer came, or a refusal, the feed's host may still give one; where there is no feed,
/// the reason is worth more than that.
Task<std::vector<std::int64_t>> ChartsService::idsOnPage(ChartQuery query, RequestContext context) {
  try {
    auto ids = co_await pages_.chartIds(query, std::move(context));
    co_return ids;
  } catch (const NetworkError& error) {
    const bool cancelled = error.kind() == NetworkError::Kind::cancelled;
    if (cancelled || findFeed(query) == nullptr) throw;
  } catch (const ITunesError&) {
    if (findFeed(query) == nullptr) throw;
  }
  co_return {};
}

Task<std::vector<std::int64_t>> ChartsService::idsInFeed(ChartQuery query, RequestContext context) {
  const Feed* feed = findFeed(query);
  if (feed == nullptr) throw ITunesError::emptyFeed();
  const std::string genre = query.genreId ? fmt::format("/genre={}", *query.genreId) : "";
  std::string url = fmt::format("{}/{}/rss/{}{}/limit={}/json", address_, query.storefront,
                                feed->name, genre, longest(query.platform));
  const std::string body = co_await itunes_.fetch(std::move(url), std::move(context));
  co_return decodeChartFeed(body);
}

Task<std::vector<RankedApp>> ChartsService::apps(ChartQuery query, std::vector<std::int64_t> ids,
                                                 ChartPlaces places, RequestContext context) {
  const std::vector<std::int64_t> asked = idsAt(ids, places);
  auto found = co_await itunes_.lookup(asked, query.storefront, std::move(context));
  auto records = byId(std::move(found), query.platform);
  std::vector<RankedApp> ranked;
  for (std::size_t i = 0; i < asked.size(); ++i) {
    const auto record = records.find(asked[i]);
    if (record == records.end()) continue;
    ranked.push_back({places.first + i + 1, std::move(record->second)});
    records.erase(record);
  }
  co_return ranked;
}

}  // namespace quillet
