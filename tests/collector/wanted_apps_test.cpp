// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/wanted_apps.h"

#include <fmt/format.h>

#include <numeric>

#include "base/errors.h"
#include "collector/price_record.h"
#include "collector/store_test.h"
#include "store/records/itunes_error.h"
#include "support/message_of.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class WantedAppsTest : public StoreTest {
 protected:
  void begin(const WantedApps& wanted) { change(beginPreparation, wanted, clock.now()); }
  void run() { (void)runVirtual(clock, collectRound(services(), {})); }

  void answerFeed(std::string_view name, int status, const std::string& body, int times = 1) {
    for (int i = 0; i < times; ++i)
      http.answer(fmt::format("https://store.example/us/rss/{}/json", name), status, body);
  }

  void answerPages(std::initializer_list<const char*> platforms) {
    for (const char* platform : platforms)
      http.answer(fmt::format("https://web.example/us/{}/charts/36", platform), 404, "");
  }

  void answerLookup(std::string_view ids) {
    http.answer(fmt::format("https://store.example/lookup?id={}&country=us", ids), 200,
                R"({"results":[]})");
  }

  static std::string feedOf(int id) {
    return fmt::format(R"({{"feed":{{"entry":{{"id":{{"attributes":{{"im:id":"{}"}}}}}}}}}})", id);
  }
};

TEST_P(WantedAppsTest, AsksForEachAppOnceInEachStorefrontAHundredAtATime) {
  WantedApps wanted{.storefronts = {"us", "jp", "de", "fr", "gb", "it", "au"},
                    .ids = std::vector<std::int64_t>(1050)};
  std::iota(wanted.ids.begin(), wanted.ids.end(), 1);
  wanted.ids.insert(wanted.ids.end(), {3, 3});
  begin(wanted);
  EXPECT_TRUE(change(endPreparation));
  EXPECT_FALSE(change(endPreparation)) << "once";
  std::vector<std::pair<std::string, std::size_t>> taken;
  while (const auto lookup = change(takeLookup, database->dialect(), "a", clock.now()))
    taken.emplace_back(lookup->request.country, lookup->request.ids.size());
  ASSERT_EQ(taken.size(), 77U);
  EXPECT_EQ(taken[9], std::pair(std::string("us"), std::size_t{100}));
  EXPECT_EQ(taken[76], std::pair(std::string("au"), std::size_t{50}));
}

TEST_P(WantedAppsTest, TakesARoundWithoutAnyAppBack) {
  begin({.storefronts = {"us"}, .wantsRecorded = true});
  EXPECT_TRUE(change(endPreparation));
  EXPECT_FALSE(change(newestRound));
}

TEST_P(WantedAppsTest, AddsUpChartsSearchesAndTheRecord) {
  answerPages({"mac", "mac", "iphone", "iphone", "ipad", "ipad", "ipad", "ipad"});
  answerFeed("topfreemacapps/limit=200", 200, feedOf(1));
  answerFeed("topfreeapplications/limit=100", 200, feedOf(3));
  answerFeed("toppaidapplications/limit=100", 200, R"({"feed":{}})");
  answerFeed("topgrossingapplications/limit=100", 400, "");
  answerFeed("topfreeipadapplications/limit=100", 200, "<html>Sorry</html>", 3);
  answerFeed("toppaidipadapplications/limit=100", 200, feedOf(2));
  answerFeed("topgrossingipadapplications/limit=100", 200, feedOf(3));
  for (const std::string_view entity : {"macSoftware", "software", "iPadSoftware"}) {
    http.answer(
        fmt::format("https://store.example/search?term=red%20ink&entity={}&country=us&limit=200",
                    entity),
        200, R"({"results":[{"trackId":4,"trackName":"Ink"}]})");
  }
  change(recordPrices, "jp", std::vector<ObservedApp>{{9, "Old", "", "JPY", "", 100, {}}},
         Instant{});
  answerLookup("1,2,3,4,5,9");
  begin({.storefronts = {"us"},
         .ids = {5},
         .searches = {"red ink"},
         .wantsCharts = true,
         .wantsRecorded = true});
  run();
  const std::string unread =
      "No chart top-free (ipad, us): The chart's feed could not be read: it is not JSON.";
  EXPECT_EQ(
      said,
      (Lines{"No chart top-grossing (iphone, us): Apple's server returned an error (HTTP 400).",
             unread, unread, unread, "Round 1: 1 lookups; 1 min at 15 requests a minute."}));
  std::vector<std::string> failed;
  for (const LookupRequest& each : change(failedQuestions)) failed.push_back(each.question);
  EXPECT_EQ(failed, (Lines{"chart ipad top-free", "chart iphone top-grossing"}));
  EXPECT_TRUE(change(failedLookups).empty());
  const Round round = change(newestRound).value();
  EXPECT_EQ(std::pair(round.lookups, round.failed), std::pair(std::int64_t{1}, std::int64_t{0}));
}

TEST_P(WantedAppsTest, AsksNothingAgainAfterTheStoreWantedFewerRequests) {
  begin({.storefronts = {"us"}, .wantsCharts = true});
  answerPages({"mac"});
  answerFeed("topfreemacapps/limit=200", 200, feedOf(1));
  answerPages({"mac"});  // there is no feed of paid ones
  for (int i = 0; i < 6; ++i) answerPages({"iphone"});
  answerFeed("topfreeapplications/limit=100", 403, "", 6);
  EXPECT_THROW(run(), ITunesError);
  EXPECT_EQ(change(newestRound).value().preparation.value().done, 3);
  answerPages({"iphone", "iphone", "ipad", "ipad"});
  for (const char* feed : {"topfreeapplications", "toppaidapplications", "topgrossingapplications",
                           "topfreeipadapplications", "toppaidipadapplications"})
    answerFeed(fmt::format("{}/limit=100", feed), 200, feedOf(2));
  answerFeed("topgrossingipadapplications/limit=100", 200, feedOf(2));
  answerLookup("1,2");
  run();
  EXPECT_EQ(change(newestRound).value().lookups, 1);
}

TEST(ParseIds, ReadsAnIdALine) {
  EXPECT_EQ(parseIds("\xEF\xBB\xBF"
                     "12\n",
                     "f"),
            std::vector<std::int64_t>{12});
  EXPECT_EQ(parseIds("\n 12 \r\n# all\n34 # one\n", "f"), (std::vector<std::int64_t>{12, 34}));
  for (const auto& [text, message] : {std::pair{"1\nid2\n", "f, line 2: 'id2' is no track ID"},
                                      std::pair{"-1", "f, line 1: '-1' is no track ID"},
                                      std::pair{"1 2", "f, line 1: '1 2' is no track ID"}}) {
    EXPECT_EQ(messageOf<BadSetting>([&] { (void)parseIds(text, "f"); }), message);
  }
}

TEST_P(WantedAppsTest, WaitsForAStoreThatAPortalHides) {
  const auto feeds = {"topfreemacapps/limit=200",
                      "topfreeapplications/limit=100",
                      "toppaidapplications/limit=100",
                      "topgrossingapplications/limit=100",
                      "topfreeipadapplications/limit=100",
                      "toppaidipadapplications/limit=100",
                      "topgrossingipadapplications/limit=100"};
  begin({.storefronts = {"us"}, .wantsCharts = true});
  for (int i = 0; i < 2; ++i) answerPages({"mac", "iphone", "iphone", "ipad", "ipad"});
  answerPages({"mac"});
  for (const char* feed : feeds) {
    answerFeed(feed, 200, "<html>Log in");
    answerFeed(feed, 200, feedOf(1));
  }
  answerLookup("1");
  run();
  EXPECT_EQ(clock.waits(),
            (std::vector<std::chrono::milliseconds>{1min, 2min, 4min, 8min, 16min, 30min, 30min}));
}

QUILLET_IN_BOTH_DATABASES(WantedAppsTest);

}  // namespace
}  // namespace quillet
