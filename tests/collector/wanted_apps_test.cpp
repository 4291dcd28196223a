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

class WantedAppsTest : public StoreTest {
 protected:
  std::vector<LookupRequest> lookups(const WantedApps& wanted) {
    return runVirtual(clock, wantedLookups(services(), wanted, {}));
  }

  void answerFeed(std::string_view name, int status, const std::string& body) {
    http.answer(fmt::format("https://store.example/us/rss/{}/json", name), status, body);
  }

  static std::string feedOf(int id) {
    return fmt::format(R"({{"feed":{{"entry":{{"id":{{"attributes":{{"im:id":"{}"}}}}}}}}}})", id);
  }
};

TEST_P(WantedAppsTest, AsksForEachAppOnceInEachStorefrontAHundredAtATime) {
  WantedApps wanted{.storefronts = {"us", "jp"}, .ids = std::vector<std::int64_t>(150)};
  std::iota(wanted.ids.begin(), wanted.ids.end(), 1);
  wanted.ids.insert(wanted.ids.end(), {3, 3});
  const auto requests = lookups(wanted);
  ASSERT_EQ(requests.size(), 4U);
  EXPECT_EQ(requests[0].ids.size(), 100U);
  EXPECT_EQ(requests[1].ids.size(), 50U);
  EXPECT_EQ(requests[2].country, "jp");
}

TEST_P(WantedAppsTest, AddsUpChartsSearchesAndTheRecord) {
  for (const char* platform : {"mac", "mac", "iphone", "iphone", "ipad", "ipad"})
    http.answer(fmt::format("https://web.example/us/{}/charts/36", platform), 404, "");
  answerFeed("topfreemacapps/limit=200", 200, feedOf(1));
  answerFeed("topfreeapplications/limit=100", 200, feedOf(3));
  answerFeed("toppaidapplications/limit=100", 200, R"({"feed":{}})");
  answerFeed("topgrossingapplications/limit=100", 400, "");
  answerFeed("topfreeipadapplications/limit=100", 200, "<html>Sorry</html>");
  answerFeed("toppaidipadapplications/limit=100", 200, feedOf(2));
  answerFeed("topgrossingipadapplications/limit=100", 200, feedOf(3));
  for (const std::string_view entity : {"macSoftware", "software", "iPadSoftware"}) {
    http.answer(
        fmt::format("https://store.example/search?term=ink&entity={}&country=us&limit=200", entity),
        200, R"({"results":[{"trackId":4,"trackName":"Ink"}]})");
  }
  change(recordPrices, "jp", std::vector<ObservedApp>{{9, "Old", "", "JPY", "", 100, {}}},
         Instant{});
  const auto requests = lookups({.storefronts = {"us"},
                                 .ids = {5},
                                 .searches = {"ink"},
                                 .wantsCharts = true,
                                 .wantsRecorded = true});
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0].ids, (std::vector<std::int64_t>{1, 2, 3, 4, 5, 9}));
  EXPECT_EQ(
      said,
      (Lines{"No chart top-grossing (iphone, us): Apple's server returned an error (HTTP 400).",
             "No chart top-free (ipad, us): The chart's feed could not be read: it is not JSON."}));
}

TEST_P(WantedAppsTest, StopsWhereTheStoreWantsFewerRequests) {
  http.answer("https://web.example/us/mac/charts/36", 404, "");
  answerFeed("topfreemacapps/limit=200", 403, "");
  EXPECT_THROW(lookups({.storefronts = {"us"}, .wantsCharts = true}), ITunesError);
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

INSTANTIATE_TEST_SUITE_P(Databases, WantedAppsTest, testing::Values(Engine::sqlite), nameOfEngine);

}  // namespace
}  // namespace quillet
