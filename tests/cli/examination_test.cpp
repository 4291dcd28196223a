// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/examination.h"

#include <gtest/gtest.h>

#include <numeric>

#include "store/records/itunes_error.h"
#include "support/hand_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

Ids idsFrom(std::int64_t first, std::size_t count) {
  Ids ids(count);
  std::iota(ids.begin(), ids.end(), first);
  return ids;
}

std::vector<ITunesApp> macApps(const Ids& ids) {
  std::vector<ITunesApp> apps;
  for (const std::int64_t id : ids) {
    ITunesApp app;
    app.trackId = id;
    app.kind = "mac-software";
    app.price = 1.99;
    app.userRatingCount = 0;
    app.averageUserRating = 0;
    apps.push_back(app);
  }
  return apps;
}

/// The catalog's answer about these apps; `resource` takes an ID, then `more`.
template <typename... More>
std::string answerOf(const Ids& ids, const char* resource, const More&... more) {
  std::vector<std::string> resources;
  for (const auto id : ids) resources.push_back(fmt::format(fmt::runtime(resource), id, more...));
  return fmt::format(R"({{"data":[{}]}})", fmt::join(resources, ","));
}

/// Every app sells one thing, a subscription or a one-time unlock.
std::string sellingAnswer(const Ids& ids, bool subscription) {
  return answerOf(
      ids,
      R"({{"id":"{}","views":{{"top-in-app-purchasables":{{"data":[{{"id":"p","attributes":)"
      R"({{"name":"Full Version","isSubscription":{}}}}}]}}}}}})",
      subscription);
}

std::string factsAnswer(const Ids& ids, double rating, bool rosetta) {
  return answerOf(ids,
                  R"({{"id":"{}","attributes":{{"userRating":{{"value":{},"ratingCount":9}},)"
                  R"("platformAttributes":{{"osx":{{"requiresRosetta":{}}}}}}}}})",
                  rating, rosetta);
}

class ExaminationTest : public testing::Test {
 protected:
  static std::string purchasesAddress(const Ids& ids, std::string_view platform = "mac") {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform={}"
        "&views=top-in-app-purchasables&l=en-US",
        fmt::join(ids, ","), platform);
  }

  static std::string factsAddress(const Ids& ids) {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform=mac&l=en-US",
        fmt::join(ids, ","));
  }

  Task<Examined> start(std::vector<ITunesApp> apps) {
    criteria.storefront = "us";
    criteria.timeZone = [](Instant) { return 0s; };
    return examine(std::move(apps), criteria, &catalog);
  }

  Examined run(std::vector<ITunesApp> apps) { return runVirtual(clock, start(std::move(apps))); }

  HandClock clock;
  ScriptedHttpClient http;
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  ExaminationCriteria criteria;
};

TEST_F(ExaminationTest, AsksNothingThatTheRecordsAnswer) {
  criteria.limit = 2;
  criteria.filters.price = PriceFilter::paid;
  criteria.sort = SortOrder::name;
  auto apps = macApps({1, 2, 3, 4});
  apps[1].price = 0;
  const Examined examined = run(apps);
  EXPECT_EQ(examined.positions, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(examined.scanned, 3U);
  EXPECT_EQ(run({}).scanned, 0U);
}

TEST_F(ExaminationTest, AsksFiftyAtATimeAndNoFurtherThanItTakes) {
  criteria.limit = 3;
  criteria.filters.purchases = PurchaseFilter::noSubscription;
  criteria.filters.maxPrice = 5;
  auto apps = macApps(idsFrom(1, 160));
  apps[0].price = 9;  // fails before anyone is asked
  // Nobody in the first fifty passes: two subscribe-only, the others unknown.
  http.answer(purchasesAddress(idsFrom(2, 50)), 200, sellingAnswer({2, 3}, true));
  http.answer(purchasesAddress(idsFrom(52, 50)), 200, sellingAnswer(idsFrom(60, 10), false));
  const Examined examined = run(apps);
  EXPECT_EQ(examined.positions, (std::vector<std::size_t>{59, 60, 61}));
  EXPECT_EQ(examined.scanned, 62U);
  EXPECT_EQ(examined.apps.front().hasSubscription, false);
}

TEST_F(ExaminationTest, RequestsNeededInAnyCaseAreUnderWayTogether) {
  criteria.limit = 101;
  criteria.filters.purchases = PurchaseFilter::hasInAppPurchases;
  const Ids batches[] = {idsFrom(1, 50), idsFrom(51, 50), idsFrom(101, 20)};
  for (const Ids& batch : batches) {
    http.answer(purchasesAddress(batch), 200, sellingAnswer(batch, false));
  }
  http.hold(purchasesAddress(batches[0]));
  auto task = start(macApps(idsFrom(1, 120)));
  EXPECT_EQ(http.requests().size(), 3U);
  http.release(purchasesAddress(batches[0]));
  EXPECT_EQ(runVirtual(clock, std::move(task)).scanned, 101U);
}

TEST_F(ExaminationTest, AsksForEachKindOnItsOwnPlatform) {
  criteria.limit = 10;
  criteria.filters.purchases = PurchaseFilter::subscriptionOnly;
  // One ID sold as a Mac app and as an iPhone app, which differ in what they sell.
  auto apps = macApps({7, 7});
  apps[1].kind = "software";
  http.answer(purchasesAddress({7}, "mac"), 200, sellingAnswer({7}, false));
  http.answer(purchasesAddress({7}, "ipad"), 200, sellingAnswer({7}, true));
  EXPECT_EQ(run(apps).positions, std::vector<std::size_t>{1});
}

TEST_F(ExaminationTest, ReadsRatingsOfMacAppsWhereTheyAreUnknown) {
  criteria.limit = 10;
  criteria.filters.minRating = 4;
  auto apps = macApps({1, 2, 3, 4});
  apps[1].userRatingCount = 5;
  apps[1].averageUserRating = 3;  // known, and too low
  apps[3].kind = "software";      // an iPhone app without ratings has none
  http.answer(factsAddress({1, 3}), 200,
              R"({"data":[{"id":"1","attributes":{"userRating":{"value":4,"ratingCount":2}}},
                {"id":"3","attributes":{"userRating":{"value":3.9,"ratingCount":2}}}]})");
  const Examined examined = run(apps);
  EXPECT_EQ(examined.positions, std::vector<std::size_t>{0});
  EXPECT_EQ(examined.apps.front().userRatingCount, 2);
}

TEST_F(ExaminationTest, ReadsRatingsForTheSortOfWhatWasKept) {
  criteria.limit = 2;
  criteria.sort = SortOrder::popularity;
  http.answer(factsAddress({1, 2}), 200, factsAnswer({2}, 4.5, false));
  const Examined examined = run(macApps({1, 2, 3}));
  EXPECT_EQ(examined.apps[0].userRatingCount, 0);
  EXPECT_EQ(examined.apps[1].userRatingCount, 9);
}

TEST_F(ExaminationTest, JudgesMacBuildsAndAsksForNoOthers) {
  criteria.limit = 10;
  criteria.filters.architecture = ArchitectureFilter::needsRosetta;
  auto apps = macApps({1, 2, 3});
  apps[1].kind = "software";
  http.answer(factsAddress({1, 3}), 200, factsAnswer({3}, 4, true));
  EXPECT_EQ(run(apps).positions, std::vector<std::size_t>{2});
}

TEST_F(ExaminationTest, FailsWithTheCatalogButLeavesNothingRunning) {
  criteria.limit = 200;
  criteria.filters.architecture = ArchitectureFilter::appleSilicon;
  http.answer(factsAddress(idsFrom(1, 50)), 429, "");
  http.answer(factsAddress({51}), 200, factsAnswer({51}, 4, false));
  http.hold(factsAddress({51}));
  auto task = start(macApps(idsFrom(1, 51)));
  clock.advance(1s);
  EXPECT_FALSE(task.isReady());
  http.release(factsAddress({51}));
  EXPECT_THROW(runVirtual(clock, std::move(task)), ITunesError);
}

}  // namespace
}  // namespace quillet
