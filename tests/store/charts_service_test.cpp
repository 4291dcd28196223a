// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/charts_service.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/embedded_document.h"
#include "store/records/itunes_error.h"
#include "store/store_scraper.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

std::string pageOf(std::string_view chart, const Ids& ids) {
  std::vector<std::string> items;
  for (const auto id : ids) items.push_back(fmt::format(R"({{"adamId":"{}"}})", id));
  return fmt::format(R"(<script id="serialized-server-data">{{"data":[{{"data":{{"segments":[)"
                     R"({{"chart":"{}","shelves":[{{"items":[{}]}}]}}]}}}}]}}</script>)",
                     chart, fmt::join(items, ","));
}

std::string feedOf(std::int64_t id) {
  return fmt::format(R"({{"feed":{{"entry":{{"id":{{"attributes":{{"im:id":"{}"}}}}}}}}}})", id);
}

class ChartsServiceTest : public testing::Test {
 protected:
  static std::string page(const std::string& path) { return "https://web.example/" + path; }
  static std::string feed(std::string_view path) {
    return fmt::format("https://store.example/us/rss/{}/json", path);
  }
  Ids ids(ChartType chart, Platform platform, std::optional<int> genre = {}) {
    const RequestContext context{requestClass, {}};
    return runVirtual(clock, service.ids({chart, platform, "us", genre}, context));
  }

  RequestClass requestClass = RequestClass::interactive;
  FakeClock clock;
  ScriptedHttpClient http;
  ITunesClient itunes{http, clock, "https://store.example"};
  ChartsPageScraper pages{http, "https://web.example"};
  ChartsService service{itunes, pages, "https://store.example"};
};

TEST_F(ChartsServiceTest, ReadsPagesAsABrowser) {
  http.answer(page("us/mac/charts/36"), 200, pageOf("top-free", {5, 4}));
  EXPECT_EQ(ids(ChartType::topFree, Platform::mac), (Ids{5, 4}));
  http.answer(page("us/ipad/charts/6026"), 200, pageOf("top-paid", {6}));
  EXPECT_EQ(ids(ChartType::topPaid, Platform::ipad, 6026), Ids{6});
  for (const HttpRequest& request : http.requests()) {
    EXPECT_EQ(request.idleTimeout, 25s);
    EXPECT_TRUE(request.headers.at(0).second.ends_with("Version/17.0 Safari/605.1.15"));
  }
}

TEST_F(ChartsServiceTest, ReadsTheFeedOfWhatPagesDoNotTell) {
  using enum ChartType;
  using enum Platform;
  // The chart, its page (none of grossing ones) and its feed.
  const std::tuple<ChartType, Platform, std::optional<int>, const char*, const char*> rows[] = {
      {topFree, mac, {}, "us/mac/charts/36", "topfreemacapps/limit=200"},
      {topFree, iphone, 6014, "us/iphone/charts/6014", "topfreeapplications/genre=6014/limit=100"},
      {topPaid, ipad, {}, "us/ipad/charts/36", "toppaidipadapplications/limit=100"},
      {topGrossing, iphone, {}, nullptr, "topgrossingapplications/limit=100"},
      {topGrossing, ipad, 6007, nullptr, "topgrossingipadapplications/genre=6007/limit=100"},
  };
  for (const auto& [chart, platform, genre, pagePath, feedPath] : rows) {
    if (pagePath != nullptr) http.answer(page(pagePath), 200, "<html>moved</html>");
    http.answer(feed(feedPath), 200, feedOf(9));
    EXPECT_EQ(ids(chart, platform, genre), Ids{9}) << feedPath;
  }
}

TEST_F(ChartsServiceTest, FallsBackOnlyToAFeedThatExists) {
  http.answer(page("us/mac/charts/36"), 429, pageOf("top-free", {1}));
  http.answer(feed("topfreemacapps/limit=200"), 200, feedOf(2));
  requestClass = RequestClass::background;
  EXPECT_EQ(ids(ChartType::topFree, Platform::mac), Ids{2});
  for (const HttpRequest& request : http.requests()) {
    EXPECT_EQ(request.requestClass, RequestClass::background) << request.url;
  }
  const NetworkError lost(NetworkError::Kind::cannotReach, "lost");
  http.fail(page("us/mac/charts/36"), lost);
  http.answer(feed("topfreemacapps/limit=200"), 200, feedOf(3));
  EXPECT_EQ(ids(ChartType::topFree, Platform::mac), Ids{3});
  http.answer(page("us/mac/charts/36"), 200, pageOf("top-free", {1}));
  EXPECT_THROW(ids(ChartType::topPaid, Platform::mac), ITunesError);
  http.fail(page("us/mac/charts/36"), lost);
  EXPECT_THROW(ids(ChartType::topPaid, Platform::mac), NetworkError);
  http.answer(page("us/mac/charts/36"), 403, "");
  EXPECT_THROW(ids(ChartType::topPaid, Platform::mac), ITunesError);
  http.answer(page("us/mac/charts/36"), 403, "");
  try {
    const ChartQuery paid{ChartType::topPaid, Platform::mac, "us", {}};
    (void)runVirtual(clock, service.idsOrRefusal(paid, {}));
    ADD_FAILURE() << "the store has that chart";
  } catch (const ITunesError& error) {
    EXPECT_EQ(error.status(), 403);
  }
  EXPECT_THROW(ids(ChartType::topGrossing, Platform::mac), ITunesError);
  http.fail(page("us/mac/charts/36"), {NetworkError::Kind::cancelled, "stopped"});
  EXPECT_THROW(ids(ChartType::topFree, Platform::mac), NetworkError);
}

TEST_F(ChartsServiceTest, KeepsRanksInTheChartsOrder) {
  http.answer("https://store.example/lookup?id=4,2,7,2&country=us", 200,
              R"({"results":[{"trackId":2,"trackName":"n","kind":"software"},
                {"trackId":2,"trackName":"n","kind":"mac-software"},{"trackId":4,"trackName":"n"},
                {"trackId":2,"trackName":"n","kind":"software"}]})");
  const auto apps = runVirtual(clock, service.apps({ChartType::topFree, Platform::mac, "us", {}},
                                                   {8, 4, 2, 7, 2}, {1, 100}, {}));
  std::string ranks;
  for (const auto& [rank, ranked] : apps)
    ranks += fmt::format("{}. {} {}; ", rank, ranked.trackId, ranked.kind.value_or(""));
  EXPECT_EQ(ranks, "2. 4 ; 3. 2 mac-software; ");
}

TEST_F(ChartsServiceTest, ReadsAnAppsPageOnce) {
  StoreScraper scraper{http, clock, "https://web.example", {}};
  const auto read = [&] { return runVirtual(clock, scraper.page(7, "de", {})); };
  http.answer(page("de/app/id7"), 404, "");
  EXPECT_THROW(read(), ITunesError);
  http.answer(page("de/app/id7"), 200,
              R"(<script id="serialized-server-data">{"data":{"data":{}}}</script>)");
  EXPECT_EQ(read(), ProductPage{});
  EXPECT_EQ(read(), ProductPage{}) << "what failed is not kept, what came is";
}

}  // namespace
}  // namespace quillet
