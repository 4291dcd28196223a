// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/examination.h"

#include "store/records/itunes_error.h"
#include "support/command_line_test.h"

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

/// The catalog's answer that says the same of each app.
std::string catalogOf(const Ids& ids, std::string_view said) {
  return fmt::format(R"({{"data":[{{"id":"{}",{}}}]}})",
                     fmt::join(ids, fmt::format(R"(",{}}},{{"id":")", said)), said);
}

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

class ExaminationTest : public CommandLineTest {
 protected:
  Task<Examined> start(std::vector<ITunesApp> apps) {
    criteria.storefront = "us";
    criteria.timeZone = [](Instant) { return 0s; };
    return examine(std::move(apps), criteria, &catalog);
  }
  Examined examined(std::vector<ITunesApp> apps) {
    return runVirtual(clock, start(std::move(apps)));
  }

  ExaminationCriteria criteria{.limit = 10};
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
