// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_examination.h"

#include "base/errors.h"
#include "query_test.h"
#include "store/records/itunes_error.h"
#include "support/store_requests.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Positions = std::vector<std::size_t>;

constexpr std::string_view kUnlock =
    R"("views":{"top-in-app-purchasables":{"data":[{"id":"p","attributes":{"name":"Pro"}}]}})";
constexpr std::string_view kSubscription = R"("views":{"top-in-app-purchasables":{"data":[
    {"id":"p","attributes":{"name":"Pro","isSubscription":true}}]}})";
constexpr std::string_view kRated = R"("attributes":{"userRating":{"value":4,"ratingCount":9},
    "platformAttributes":{"osx":{"requiresRosetta":true}}})";

/// Apps whose ratings the search service does not know.
std::vector<ITunesApp> macApps(const Ids& ids) {
  std::vector<ITunesApp> apps;
  for (const std::int64_t id : ids) {
    apps.push_back({.trackId = id,
                    .kind = "mac-software",
                    .price = 1.99,
                    .averageUserRating = 0,
                    .userRatingCount = 0});
  }
  return apps;
}

class ExaminationTest : public QueryTest {
 protected:
  Task<Examined> start(std::vector<ITunesApp> apps) {
    criteria.storefront = "us";
    criteria.timeZone = [](Instant) { return 0s; };
    return examine(std::move(apps), criteria, services(), call(), watch);
  }
  Examined examined(std::vector<ITunesApp> apps) {
    return runVirtual(clock, start(std::move(apps)));
  }

  ExaminationCriteria criteria{.limit = 10};
  RowWatch watch;
};

TEST_F(ExaminationTest, AsksFiftyAtATimeAndNoFurtherThanItTakes) {
  criteria.limit = 3;
  criteria.filters.purchases = PurchaseFilter::noSubscription;
  criteria.filters.maxPrice = 5;
  auto apps = macApps(idsFrom(1, 160));
  apps[0].price = 9;  // fails before anyone is asked
  // Nobody in the first fifty passes: two subscribe-only, the others unknown.
  http.answer(sold(idsFrom(2, 50)), 200, catalogOf({2, 3}, kSubscription));
  http.answer(sold(idsFrom(52, 50)), 200, catalogOf(idsFrom(60, 10), kUnlock));
  const Examined result = examined(apps);
  EXPECT_EQ(result.positions, (Positions{59, 60, 61}));
  EXPECT_EQ(result.scanned, 62U);
  EXPECT_EQ(result.apps.front().hasSubscription, false);
}

TEST_F(ExaminationTest, RequestsNeededInAnyCaseAreUnderWayTogether) {
  criteria.limit = 101;
  criteria.filters.purchases = PurchaseFilter::hasInAppPurchases;
  for (const Ids& batch : {idsFrom(1, 50), idsFrom(51, 50), idsFrom(101, 20)}) {
    http.answer(sold(batch), 200, catalogOf(batch, kUnlock));
  }
  http.hold(sold(idsFrom(1, 50)));
  auto task = start(macApps(idsFrom(1, 120)));
  EXPECT_EQ(http.requests().size(), 3U);
  http.release(sold(idsFrom(1, 50)));
  EXPECT_EQ(runVirtual(clock, std::move(task)).scanned, 101U);
  EXPECT_EQ(progress, (std::vector<std::string>{"0/3", "1/3", "2/3", "3/3"}));
}

TEST_F(ExaminationTest, HandsOverRowsInOrderAndStopsGentlyWithThem) {
  criteria.limit = 200;
  criteria.filters.purchases = PurchaseFilter::hasInAppPurchases;
  for (const Ids& batch : {idsFrom(1, 50), idsFrom(51, 50), idsFrom(101, 20)}) {
    http.answer(sold(batch), 200, catalogOf({batch.front(), batch.back()}, kUnlock));
  }
  http.hold(sold(idsFrom(1, 50)));
  http.hold(sold(idsFrom(51, 50)));
  Positions found;
  StopSource enough;
  watch = {.found = [&](const ITunesApp&, std::size_t position) { found.push_back(position); },
           .enough = enough.token()};
  auto task = start(macApps(idsFrom(1, 120)));
  clock.advance(1s);
  EXPECT_EQ(found, Positions()) << "the last batch waits for those before it";
  http.release(sold(idsFrom(1, 50)));
  clock.advance(1s);
  EXPECT_EQ(found, (Positions{0, 49}));
  enough.requestStop();
  const Examined result = runVirtual(clock, std::move(task));
  EXPECT_EQ(result.positions, found);
  EXPECT_EQ(result.apps.at(1).trackId, 50);
  EXPECT_EQ(result.scanned, 50U);
}

TEST_F(ExaminationTest, ThrowsWhereNoAnswerIsWanted) {
  criteria.filters.purchases = PurchaseFilter::hasInAppPurchases;
  http.answer(sold({1}), 200, catalogOf({1}, kUnlock));
  http.hold(sold({1}));
  StopSource enough;
  watch.enough = enough.token();
  auto task = start(macApps({1}));
  enough.requestStop();
  stop.requestStop();
  EXPECT_THROW(runVirtual(clock, std::move(task)), NetworkError);
}

TEST_F(ExaminationTest, ReadsFactsIntoTheRecordsThatNeedThem) {
  auto apps = macApps({1, 2, 3});
  apps[1].userRatingCount = 5;
  apps[1].averageUserRating = 3;
  apps[2].kind = "software";
  http.answer(sold({1, 2}), 200, catalogOf({2}, kUnlock));
  http.answer(sold({3}, "ipad"), 200, catalogOf({3}, kSubscription));
  http.answer(facts({1}), 200, catalogOf({1}, kRated));
  const auto read = runVirtual(clock, readCatalogFacts(apps, {.purchases = true, .ratings = true},
                                                       "us", services(), call()));
  EXPECT_EQ(read[0].userRatingCount, 9);
  EXPECT_EQ(read[0].hasInAppPurchases, std::nullopt);
  EXPECT_EQ(read[1].hasUnlockPurchase, true);
  EXPECT_EQ(read[2].hasSubscription, true);
  EXPECT_EQ(progress.back(), "3/3");
}

TEST_F(ExaminationTest, AsksForEachKindOnItsOwnPlatform) {
  criteria.filters.purchases = PurchaseFilter::subscriptionOnly;
  // One ID sold as a Mac app and as an iPhone app, which differ in what they sell.
  auto apps = macApps({7, 7});
  apps[1].kind = "software";
  http.answer(sold({7}, "mac"), 200, catalogOf({7}, kUnlock));
  http.answer(sold({7}, "ipad"), 200, catalogOf({7}, kSubscription));
  EXPECT_EQ(examined(apps).positions, Positions{1});
}

TEST_F(ExaminationTest, ReadsRatingsOfMacAppsWhereTheyAreUnknown) {
  criteria.filters.minRating = 4;
  auto apps = macApps({1, 2, 3, 4});
  apps[1].userRatingCount = 5;
  apps[1].averageUserRating = 3;  // known, and too low
  apps[3].kind = "software";      // an iPhone app without ratings has none
  http.answer(facts({1, 3}), 200, catalogOf({1}, kRated));
  const Examined result = examined(apps);
  EXPECT_EQ(result.positions, Positions{0});
  EXPECT_EQ(result.apps.front().userRatingCount, 9);
}

TEST_F(ExaminationTest, ReadsRatingsForTheSortOfWhatWasKept) {
  criteria.limit = 2;
  criteria.sort = SortOrder::popularity;
  http.answer(facts({1, 2}), 200, catalogOf({2}, kRated));
  const Examined result = examined(macApps({1, 2, 3}));
  EXPECT_EQ(result.apps[0].userRatingCount, 0);
  EXPECT_EQ(result.apps[1].userRatingCount, 9);
}

TEST_F(ExaminationTest, JudgesMacBuildsAndAsksForNoOthers) {
  criteria.filters.architecture = ArchitectureFilter::needsRosetta;
  auto apps = macApps({1, 2, 3});
  apps[1].kind = "software";
  http.answer(facts({1, 3}), 200, catalogOf({3}, kRated));
  EXPECT_EQ(examined(apps).positions, Positions{2});
}

TEST_F(ExaminationTest, FailsWithTheCatalogButLeavesNothingRunning) {
  criteria.limit = 200;
  criteria.filters.architecture = ArchitectureFilter::appleSilicon;
  http.answer(facts(idsFrom(1, 50)), 429, "");
  http.answer(facts({51}), 200, catalogOf({51}, kRated));
  http.hold(facts({51}));
  auto task = start(macApps(idsFrom(1, 51)));
  clock.advance(1s);
  EXPECT_FALSE(task.isReady());
  http.release(facts({51}));
  EXPECT_THROW(runVirtual(clock, std::move(task)), ITunesError);
}

}  // namespace
}  // namespace quillet
