// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/charts_service.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/embedded_document.h"
#include "store/records/itunes_error.h"
#include "store/store_scraper.h"
#include "support/hand_clock.h"
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

std::string app(std::int64_t id, std::string_view kind) {
  return fmt::format(R"({{"trackId":{},"trackName":"n","kind":"{}"}})", id, kind);
}

class ChartsServiceTest : public testing::Test {
 protected:
  static std::string page(std::string_view path) {
    return fmt::format("https://web.example/{}", path);
  }
  static std::string feed(std::string_view path) {
    return fmt::format("https://store.example/us/rss/{}/json", path);
  }
  Ids ids(ChartType chart, Platform platform, std::optional<int> genre = {}) {
    return runVirtual(clock, service.ids({chart, platform, "us", genre}, {}));
  }

  HandClock clock;
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
    ASSERT_EQ(request.headers.size(), 1U);
    EXPECT_EQ(request.headers[0].first, "User-Agent");
    EXPECT_TRUE(request.headers[0].second.ends_with("Version/17.0 Safari/605.1.15"));
  }
}

TEST_F(ChartsServiceTest, ReadsTheFeedOfWhatPagesDoNotTell) {
  struct Row {
    ChartType chart;
    Platform platform;
    std::optional<int> genre;
    const char* page;
    const char* feed;
  };
  using enum ChartType;
  using enum Platform;
  const Row rows[] = {
      {topFree, mac, {}, "us/mac/charts/36", "topfreemacapps/limit=200"},
      {topFree, iphone, 6014, "us/iphone/charts/6014", "topfreeapplications/genre=6014/limit=100"},
      {topFree, ipad, {}, "us/ipad/charts/36", "topfreeipadapplications/limit=100"},
      {topPaid, iphone, {}, "us/iphone/charts/36", "toppaidapplications/limit=100"},
      {topPaid, ipad, {}, "us/ipad/charts/36", "toppaidipadapplications/limit=100"},
      {topGrossing, iphone, {}, nullptr, "topgrossingapplications/limit=100"},
      {topGrossing, ipad, 6007, nullptr, "topgrossingipadapplications/genre=6007/limit=100"},
  };
  for (const Row& row : rows) {
    if (row.page != nullptr) http.answer(page(row.page), 200, "<html>moved</html>");
    http.answer(feed(row.feed), 200, feedOf(9));
    EXPECT_EQ(ids(row.chart, row.platform, row.genre), Ids{9}) << row.feed;
  }
}

TEST_F(ChartsServiceTest, FallsBackOnlyToAFeedThatExists) {
  http.answer(page("us/mac/charts/36"), 429, pageOf("top-free", {1}));
  http.answer(feed("topfreemacapps/limit=200"), 200, feedOf(2));
  EXPECT_EQ(ids(ChartType::topFree, Platform::mac), Ids{2});
  const NetworkError lost(NetworkError::Kind::cannotReach, "lost");
  http.fail(page("us/mac/charts/36"), lost);
  http.answer(feed("topfreemacapps/limit=200"), 200, feedOf(3));
  EXPECT_EQ(ids(ChartType::topFree, Platform::mac), Ids{3});
  http.answer(page("us/mac/charts/36"), 200, pageOf("top-free", {1}));
  EXPECT_THROW(ids(ChartType::topPaid, Platform::mac), ITunesError);
  http.fail(page("us/mac/charts/36"), lost);
  EXPECT_THROW(ids(ChartType::topPaid, Platform::mac), NetworkError);
  EXPECT_THROW(ids(ChartType::topGrossing, Platform::mac), ITunesError);
  EXPECT_EQ(http.requests().size(), 6U);
}

TEST_F(ChartsServiceTest, KeepsRanksInTheChartsOrder) {
  http.answer("https://store.example/lookup?id=4,2,7,2&country=us", 200,
              fmt::format(R"({{"resultCount":4,"results":[{},{},{},{}]}})", app(2, "software"),
                          app(2, "mac-software"), app(4, "software"), app(2, "software")));
  const auto apps = runVirtual(clock, service.apps({ChartType::topFree, Platform::mac, "us", {}},
                                                   {8, 4, 2, 7, 2}, {1, 100}, {}));
  ASSERT_EQ(apps.size(), 2U);
  EXPECT_EQ(apps[0].rank, 2U);
  EXPECT_EQ(apps[0].app.trackId, 4);
  EXPECT_EQ(apps[1].rank, 3U);
  EXPECT_EQ(apps[1].app.kind, "mac-software");
}

TEST_F(ChartsServiceTest, ReadsAnAppsPage) {
  StoreScraper scraper{http, "https://web.example"};
  const auto read = [&] { return runVirtual(clock, scraper.page(7, "de", {})); };
  http.answer(page("de/app/id7"), 200,
              R"(<script id="serialized-server-data">{"data":{"data":{}}}</script>)");
  EXPECT_EQ(read(), ProductPage{});
  EXPECT_EQ(http.requests().back().idleTimeout, 25s);
  EXPECT_EQ(http.requests().back().headers.size(), 1U);
  http.answer(page("de/app/id7"), 200, "<html></html>");
  EXPECT_THROW(read(), UnreadablePage);
  http.answer(page("de/app/id7"), 404, "");
  EXPECT_THROW(read(), ITunesError);
}

}  // namespace
}  // namespace quillet
