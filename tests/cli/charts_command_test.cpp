// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/charts_command.h"

#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

class ChartsCommandTest : public CommandLineTest {
 protected:
  static std::string page(std::string_view platform = "mac", int genre = 36) {
    return fmt::format("https://web.example/us/{}/charts/{}", platform, genre);
  }
  static std::string lookup(const Ids& ids) {
    return fmt::format("https://store.example/lookup?id={}&country=us", fmt::join(ids, ","));
  }
  static std::string chartOf(const Ids& ids) {
    std::vector<std::string> items;
    for (const auto id : ids) items.push_back(fmt::format(R"({{"adamId":{}}})", id));
    return fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{"segments":[)"
                       R"({{"chart":"top-free","shelves":[{{"items":[{}]}}]}}]}}}}}}</script>)",
                       fmt::join(items, ","));
  }
  /// Records of these IDs, the last one first. Odd ones cost something.
  static std::string records(Ids ids) {
    std::reverse(ids.begin(), ids.end());
    std::vector<std::string> apps;
    for (const auto id : ids) {
      apps.push_back(fmt::format(R"({{"trackId":{},"trackName":"App {}","kind":"mac-software",)"
                                 R"("price":{},"primaryGenreName":"Weather"}})",
                                 id, id, id % 2));
    }
    return fmt::format(R"({{"results":[{}]}})", fmt::join(apps, ","));
  }
  static Ids idsFrom(std::int64_t first, std::size_t count) {
    Ids ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back(first + static_cast<std::int64_t>(i));
    return ids;
  }
};

TEST_F(ChartsCommandTest, MeasuresMovementAgainstTheRecord) {
  for (int i = 0; i < 2; ++i) {
    http.answer(page(), 200, chartOf({11, 12, 13, 14}));
    http.answer(lookup({11, 12, 13, 14}), 200, records({11, 12, 13, 14}));
  }
  RecordedChartQuery asked;
  recordedChart = [&](const RecordedChartQuery& query) {
    asked = query;
    return RecordedChart{query.before - 48h, {12, 9, 13, 11}};
  };
  clock.advance(30h);
  EXPECT_EQ(printed({"charts", "-n", "4"}),
            "Top free (mac, us): 4 apps.\n"
            "Movement since " +
                formatDay(asked.before - 48h) +
                ", from Quillet's daily record of the top 50.\n\n"
                "1  ▲3   11  App 11  1.00  —  —  Weather\n"
                "2  ▼1   12  App 12  Free  —  —  Weather\n"
                "3  •    13  App 13  1.00  —  —  Weather\n"
                "4  new  14  App 14  Free  —  —  Weather\n");
  EXPECT_EQ(asked.before, std::chrono::floor<std::chrono::days>(clock.now()));
  EXPECT_EQ(asked.platform, Platform::mac);

  io.style.utf8 = false;
  printed({"charts", "-n", "4"});
  for (const char* mark : {"1  +3   11", "2  -1   12", "3  =    13", "4  new  14"}) {
    EXPECT_TRUE(says(mark));
  }
}

TEST_F(ChartsCommandTest, ShowsAChartAsJson) {
  http.answer(page(), 200, chartOf({11, 12}));
  http.answer(lookup({11, 12}), 200, records({12}));
  recordedChart = [](const RecordedChartQuery&) { return RecordedChart{Instant(24h), {7, 12}}; };
  EXPECT_EQ(json({"charts", "--free"}), flattened(R"({"count": 1,"movementDepth": 50,
      "movementSince": "1970-01-02T00:00:00Z","query": {"chart": "top-free","country": "us",
      "filters": {"price": "free"},"genreId": 36,"limit": 25,"platform": "mac","scanned": 1,
      "sort": "relevance"},"results": [{"app": {"formattedPrice": "Free","free": true,
      "genre": "Weather","kind": "mac-software","name": "App 12","price": 0,"trackId": 12},
      "change": 0,"movement": "same","previousRank": 2,"rank": 2}]})"));
}

TEST_F(ChartsCommandTest, CategoriesAreChartsWithoutARecord) {
  recordedChart = [](const RecordedChartQuery&) -> std::optional<RecordedChart> {
    ADD_FAILURE() << "a category's chart is not recorded";
    return {};
  };
  for (const char* genre : {"Developer Tools", "developer tools", "6026"}) {
    http.answer(page("iphone", 6026), 200, chartOf({2}));
    http.answer(lookup({2}), 200, records({2}));
    printed({"charts", "--genre", genre, "-p", "iphone", "--json"});
    // The app's own first category is another one: only the chart's counts.
    EXPECT_TRUE(says("\"genre\": \"Developer Tools\",\n    \"genreId\": 6026"));
  }
}

TEST_F(ChartsCommandTest, LooksUpNoMoreThanItTakes) {
  http.answer(page(), 200, chartOf(idsFrom(1, 200)));
  http.answer(lookup(idsFrom(1, 2)), 200, records({2}));
  http.answer(lookup(idsFrom(3, 100)), 200, records(idsFrom(3, 100)));
  printed({"charts", "-n", "2"});
  EXPECT_EQ(http.requests().size(), 3U) << "a place whose app is unknown is made up for";

  http.answer(page(), 200, chartOf(idsFrom(1, 200)));
  http.answer(lookup(idsFrom(1, 100)), 200, records(idsFrom(1, 100)));
  http.answer(lookup(idsFrom(101, 100)), 200, records(idsFrom(101, 100)));
  printed({"charts", "-n", "51", "--paid", "--sort", "name", "--json"});
  EXPECT_TRUE(says("\"scanned\": 101") && says("\"rank\": 101"));
  EXPECT_EQ(http.requests().size(), 6U);
}

TEST_F(ChartsCommandTest, AsksTheCatalogForThoseItExamines) {
  http.answer(page(), 200, chartOf({1, 2, 3}));
  http.answer(lookup({1, 2, 3}), 200, records({1, 2, 3}));
  http.answer(
      "https://web.example/api/apps/v1/catalog/us/apps?ids=1,3&platform=mac"
      "&views=top-in-app-purchasables&l=en-US",
      200, R"({"data":[{"id":"3","views":{"top-in-app-purchasables":{"data":[]}}}]})");
  EXPECT_TRUE(printed({"charts", "--paid", "--purchases", "no-iap"})
                  .starts_with("Top free (mac, us): 1 app, from 3 scanned.\n"));
}

TEST_F(ChartsCommandTest, LeavesOutWhatIsOwned) {
  ownedTrackIds = [] { return TrackIds{1, 2}; };
  http.answer(page(), 200, chartOf({1, 2}));
  http.answer(lookup({1, 2}), 200, records({1, 2}));
  EXPECT_EQ(said({"charts", "--hide-owned"}, 1),
            "quillet: Nothing in this chart matches.\n"
            "  try: Try --chart top-free, or another --genre.\n");
}

TEST_F(ChartsCommandTest, RankHistoryAsksForANameAlone) {
  rankHistory = [](const std::optional<std::string>& name) { return name.value_or("nameless"); };
  http.answer(lookup({5}), 200, records({5}));
  EXPECT_EQ(printed({"rank-history", " 5"}), "App 5\n");
  http.answer(lookup({5}), 429, "");
  EXPECT_EQ(printed({"rank-history", "5"}), "nameless\n") << "ranks need no waiting";
  EXPECT_EQ(io.err.content,
            "quillet: the app's name could not be read: Apple is rate limiting this address (HTTP "
            "429).\n");
  http.hold(lookup({5}));
  EXPECT_EQ(said({"rank-history", "5"}, 0),
            "quillet: the app's name could not be read: the store did not answer in time.\n");
  EXPECT_TRUE(says("nameless\n"));
  rankHistory = [](const auto&) -> std::string {
    throw CLIError(CLIError::Code::notFound, "Never.");
  };
  printed({"rank-history", "5"}, 1);
  EXPECT_EQ(http.requests().size(), 3U);
}

}  // namespace
}  // namespace quillet
