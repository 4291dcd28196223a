// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "library/cached_apps.h"
#include "library/cached_summary.h"
#include "library/chart_orders.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/store_rows.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using History = MemoryLibraryTest;

constexpr int kLastSecondOfDay = 24 * 60 * 60 - 1;

TEST_F(History, AnImportLeavesOutTheDaysThatAreRecorded) {
  const auto point = [](std::int64_t trackId, double price, Instant date) {
    return PricePoint{0, trackId, "us", price, "USD", date, false};
  };
  addPricePoints(transaction_, {point(1, 4.99, dayAndSecond(1, kLastSecondOfDay))});
  const std::vector<PricePoint> feed{
      point(1, 9, dayAndSecond(1)),  // observed that day
      point(1, 3.99, dayAndSecond(2)),
      point(2, 1, dayAndSecond(1)),
      point(2, 2, dayAndSecond(1, kLastSecondOfDay)),  // twice in the feed
      point(1, 5.99, dayAndSecond(0, kLastSecondOfDay)),
  };
  EXPECT_EQ(importPricePoints(transaction_, feed), 3U);
  EXPECT_EQ(importPricePoints(transaction_, feed), 0U);
  std::vector<double> prices;
  for (const PricePoint& row : pricePointsOf(database_, {{2, "us"}, {1, "us"}, {1, "de"}})) {
    prices.push_back(row.price);
  }
  EXPECT_EQ(prices, (std::vector<double>{1, 5.99, 4.99, 3.99}));
  EXPECT_EQ(takeChanges().prices, (std::set<AppKey>{{1, "us"}, {2, "us"}}));
}

TEST_F(History, AFetchedChartRemembersTheOrderBefore) {
  cacheChart(transaction_, "paid", {1, 2}, dayAndSecond(1));
  cacheChart(transaction_, "paid", {2, 3}, dayAndSecond(2));
  EXPECT_EQ(cachedChart(database_, "paid"),
            (ChartCache{1, "paid", {2, 3}, dayAndSecond(2), {1, 2}, dayAndSecond(1)}));
  EXPECT_FALSE(cachedChart(database_, "free"));
}

TEST_F(History, ALookupRefreshesWhatIsKnownOrListedAndKeepsWhatPagesKnow) {
  watchApps(transaction_, {watched(2)});
  CachedApp page = cached(1, "Paperfold");
  page.rating = 4.5;
  page.hasSubscription = true;
  page.deviceFamilies = {"mac"};
  CachedApp expected = page;
  page.releaseNotes = "Old";
  recordView(transaction_, page, dayAndSecond(1));
  refreshCachedApps(transaction_, {cached(1, "Paperfold 2"), cached(2), cached(3)});
  const auto rows = cachedAppsOf(database_, {{1, "us"}, {2, "us"}, {3, "us"}});
  ASSERT_EQ(rows.size(), 2U);
  expected.id = 1;
  expected.name = "Paperfold 2";
  expected.lastViewedAt = dayAndSecond(1);
  EXPECT_EQ(rows[0], expected) << "release notes are the lookup's to say";
  EXPECT_EQ(rows[1].lastViewedAt, std::nullopt);
}

TEST_F(History, ALookupOfAnAppWithoutRatingsForgetsAnEarlierMean) {
  CachedApp page = cached(1);
  page.rating = 4.5;
  page.ratingCount = 12;
  recordView(transaction_, page, dayAndSecond(1));
  const ITunesApp record{
      .trackId = 1, .trackName = "n", .averageUserRating = 0, .userRatingCount = 0};
  refreshCachedApps(transaction_, {cachedAppOf(record, {"us", Platform::iphone, dayAndSecond(2)})});
  const CachedApp known = cachedAppsOf(database_, {{1, "us"}}).at(0);
  EXPECT_EQ(known.rating, 0);
  EXPECT_EQ(known.ratingCount, 0);
}

TEST_F(History, AKeptRecordIsTheRecordAgain) {
  const CachedApp row{.trackId = 1,
                      .country = "us",
                      .name = "Paperfold",
                      .bundleId = "example.paperfold",
                      .sellerName = "Rook & Reed",
                      .artistId = 2,
                      .kind = "mac-software",
                      .price = 4.99,
                      .formattedPrice = "$4.99",
                      .currency = "USD",
                      .rating = 4.5,
                      .ratingCount = 12,
                      .version = "1.2",
                      .releaseDate = dayAndSecond(0),
                      .currentVersionReleaseDate = dayAndSecond(1),
                      .releaseNotes = "Mends.",
                      .appDescription = "Folds.",
                      .primaryGenreName = "Utilities",
                      .artworkUrl512 = "https://pictures.example/1.png",
                      .minimumOsVersion = "12.0",
                      .fileSizeBytes = 7,
                      .contentAdvisoryRating = "4+",
                      .trackViewUrl = "https://apps.example/1",
                      .ratingHistogram = std::vector<std::int64_t>{1, 2, 3, 4, 2},
                      .ratingsUpdatedAt = dayAndSecond(2),
                      .hasInAppPurchases = true,
                      .hasSubscription = false,
                      .hasUnlockPurchase = true,
                      .editorialBadge = "Editors' Choice",
                      .tagline = "Folds paper",
                      .sellerUrl = "https://rook.example",
                      .artistViewUrl = "https://apps.example/rook",
                      .needsRosetta = false,
                      .genres = {"Utilities"},
                      .screenshotUrls = {"https://pictures.example/a.png"},
                      .ipadScreenshotUrls = {"https://pictures.example/b.png"},
                      .languageCodes = {"EN"},
                      .deviceFamilies = {"mac"},
                      .updatedAt = dayAndSecond(2)};
  EXPECT_EQ(cachedAppOf(recordOf(row), {"us", Platform::mac, dayAndSecond(2)}), row);
}

TEST_F(History, ListsFindWhatTheCacheKnowsOfTheirApps) {
  for (const std::int64_t trackId : {1, 2, 3, 4}) {
    recordView(transaction_, cached(trackId), dayAndSecond(1));
  }
  watchApps(transaction_, {watched(1), watched(2, "de"), watched(9)});
  addOwnedApps(transaction_, {owned(2)});
  const RowId writing = addCollection(transaction_, {0, "Writing", "pencil", {}});
  addEntries(transaction_, writing, {entry(3)});
  const auto theOne = [](const std::vector<CachedSummary>& found) {
    return found.size() == 1 ? found[0].trackId : 0;
  };
  EXPECT_EQ(theOne(summariesOfWatched(database_)), 1) << "neither 2 of \"us\" nor 9";
  EXPECT_EQ(theOne(summariesOfOwned(database_)), 2);
  EXPECT_EQ(theOne(summariesOfEntries(database_, writing)), 3);
  EXPECT_EQ(theOne(summariesOf(database_, {{4, "us"}, {4, "de"}})), 4);
}

TEST_F(History, ForgettingViewsKeepsTheCacheAndIsUndone) {
  for (const int id : {1, 2, 3}) recordView(transaction_, cached(id), dayAndSecond(id));
  EXPECT_EQ(viewedApps(database_, 2).at(0).trackId, 3);
  forgetViews(transaction_, {{3, "us"}});
  const auto before = viewedApps(database_, 10);
  const RemovedRows removed = forgetAllViews(transaction_);
  EXPECT_EQ(removed.views.size(), 2U);
  EXPECT_TRUE(viewedApps(database_, 10).empty());
  EXPECT_EQ(cachedAppsOf(database_, {{1, "us"}}).size(), 1U);
  EXPECT_EQ(putBack(transaction_, removed), 2U);
  EXPECT_EQ(viewedApps(database_, 10), before);
}

}  // namespace
}  // namespace quillet
