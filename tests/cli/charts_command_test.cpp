// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class ChartsCommandTest : public CommandLineTest {
 protected:
  void answerChart(const Ids& ids, std::string_view page = "mac/charts/36") {
    http.answer(fmt::format("https://web.example/us/{}", page), 200,
                fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{"segments":[
                  {{"chart":"top-free","shelves":[{{"items":[{{"adamId":{}}}]}}]}}]}}}}}}</script>)",
                            fmt::join(ids, R"(},{"adamId":)")));
  }
  /// The records come the other way round. Apps with odd IDs cost something.
  void answerRecords(const Ids& asked, const Ids& known) {
    std::vector<std::string> apps;
    for (auto id = known.rbegin(); id != known.rend(); ++id) {
      apps.push_back(fmt::format(R"({{"trackId":{0},"trackName":"App {0}","kind":"mac-software",
                                   "price":{1},"primaryGenreName":"Weather"}})",
                                 *id, *id % 2));
    }
    answerLookup(fmt::format("{}", fmt::join(asked, ",")), {apps.begin(), apps.end()});
  }
};

TEST_F(ChartsCommandTest, MeasuresMovementAgainstTheRecord) {
  RecordedChartQuery asked;
  recordedChart = [&](const RecordedChartQuery& query) {
    asked = query;
    return RecordedChart{query.before - 1h, {12, 9, 13, 11}};
  };
  clock.setNow(*parseInternetDate("2026-11-21T12:00:00Z"));
  for (int i = 0; i < 2; ++i) {
    answerChart({11, 12, 13, 14});
    answerRecords({11, 12, 13, 14}, {11, 12, 13, 14});
  }
  EXPECT_EQ(printed("charts -n 4"),
            "Top free (mac, us): 4 apps.\n"
            "Movement since 2026-11-20, from Quillet's daily record of the top 50.\n\n"
            "1  ▲3   11  App 11  1.00  —  —  Weather\n"
            "2  ▼1   12  App 12  Free  —  —  Weather\n"
            "3  •    13  App 13  1.00  —  —  Weather\n"
            "4  new  14  App 14  Free  —  —  Weather\n");

  io.style.utf8 = false;
  printed("charts -n 4");
  for (const char* mark : {"1  +3   11", "2  -1   12", "3  =    13"}) EXPECT_TRUE(says(mark));
}

TEST_F(ChartsCommandTest, CategoriesAreChartsWithoutARecord) {
  recordedChart = [](const RecordedChartQuery&) -> std::optional<RecordedChart> {
    ADD_FAILURE() << "a category's chart is not recorded";
    return {};
  };
  for (const char* genre : {"developer tools", "6026"}) {
    answerChart({2}, "iphone/charts/6026");
    answerRecords({2}, {2});
    printed({"charts", "--genre", genre, "-p", "iphone", "--json"});
    // The app's own first category is another one: only the chart's counts.
    EXPECT_TRUE(says("\"genre\": \"Developer Tools\",\n    \"genreId\": 6026"));
  }
}

TEST_F(ChartsCommandTest, AsksTheCatalogForThoseThatAreNotOwned) {
  ownedTrackIds = [] { return TrackIds{5}; };
  answerChart({1, 2, 3, 5});
  answerRecords({1, 2, 3, 5}, {1, 2, 3, 5});
  http.answer(sold({1, 3}), 200,
              R"({"data":[{"id":"3","views":{"top-in-app-purchasables":{"data":[]}}}]})");
  EXPECT_TRUE(printed("charts --paid --purchases no-iap --hide-owned")
                  .starts_with("Top free (mac, us): 1 app, from 4 scanned.\n"));
  answerChart({1});
  answerRecords({1}, {1});
  EXPECT_EQ(said("charts --free", 1),
            "quillet: Nothing in this chart matches.\n"
            "  try: Try --chart top-free, or another --genre.\n");
}

TEST_F(ChartsCommandTest, RankHistoryAsksForANameAlone) {
  const std::string unread = "quillet: the app's name could not be read: ";
  answerLookup("5", {R"({"trackId":5,"trackName":"Amber Notes"})"});
  EXPECT_EQ(printed("rank-history 5"), "Amber Notes\n");
  http.answer(lookup("5"), 429, "");
  EXPECT_EQ(said("rank-history 5", 0),
            unread + "Apple is rate limiting this address (HTTP 429).\n");
  EXPECT_EQ(io.out.content, "\n") << "ranks need no waiting";
  http.hold(lookup("5"));
  EXPECT_EQ(said("rank-history 5", 0), unread + "the store did not answer in time.\n");
}

}  // namespace
}  // namespace quillet
