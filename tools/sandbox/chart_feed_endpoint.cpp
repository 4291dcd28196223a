// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/chart_feed_endpoint.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "sandbox/charts.h"
#include "sandbox/feed_answers.h"

namespace quillet::sandbox {

namespace {

constexpr std::int64_t kUsualLength = 10;

struct FeedRow {
  std::string_view name;
  Chart chart;
  Shelf shelf;
  std::int64_t longest;
};

constexpr auto kFeeds = std::to_array<FeedRow>({
    {"topfreemacapps", Chart::topFree, Shelf::mac, 200},
    {"topfreeapplications", Chart::topFree, Shelf::iphone, 100},
    {"topfreeipadapplications", Chart::topFree, Shelf::ipad, 100},
    {"toppaidapplications", Chart::topPaid, Shelf::iphone, 100},
    {"toppaidipadapplications", Chart::topPaid, Shelf::ipad, 100},
    {"topgrossingapplications", Chart::topGrossing, Shelf::iphone, 100},
    {"topgrossingipadapplications", Chart::topGrossing, Shelf::ipad, 100},
    {"topgrossingmacapps", Chart::topGrossing, Shelf::iphone, 100},
});

}  // namespace

Answer answerChartFeed(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  const auto row = std::ranges::find(kFeeds, request.captures[1], &FeedRow::name);
  auto settings = feedSettings(request.captures[2]);
  if (!storefront || row == kFeeds.end()) return plainRefusal(400, "No such feed\n");
  const auto genre = parseWhole(settings["genre"]).value_or(kAllGenres);
  const auto limit = parseWhole(settings["limit"]).value_or(kUsualLength);
  auto apps = chartOf(store, {row->chart, row->shelf, *storefront, static_cast<int>(genre)});
  const auto longest = static_cast<std::size_t>(std::clamp<std::int64_t>(limit, 1, row->longest));
  apps.resize(std::min(apps.size(), longest));
  Feed feed(apps.size(), std::string(row->name), store.today());
  for (const AppNumber number : apps) writeAppEntry(feed.json(), store.app(number), *storefront);
  return feed.take(request.path);
}

}  // namespace quillet::sandbox
