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
#include "library/watched_apps.h"

namespace quillet {
namespace {

using History = MemoryLibraryTest;

constexpr int kLastSecondOfDay = 24 * 60 * 60 - 1;

PricePoint point(std::int64_t trackId, double price, Instant date) {
  return {0, trackId, "us", price, "USD", date, false};
}

TEST_F(History, AnImportLeavesOutTheDaysThatAreRecorded) {
  addPricePoints(transaction_, {point(1, 4.99, dayAndSecond(1, kLastSecondOfDay))});
  const std::vector<PricePoint> feed{
      point(1, 9, dayAndSecond(1)),  // observed that day
      point(1, 3.99, dayAndSecond(2)),
      point(2, 1, dayAndSecond(1)),
      point(2, 2, dayAndSecond(1, kLastSecondOfDay)),  // twice in the feed
      point(1, 5.99, dayAndSecond(0, kLastSecondOfDay)),
  };
  library_.takeChanges();
  EXPECT_EQ(importPricePoints(transaction_, feed), 3U);
  EXPECT_EQ(importPricePoints(transaction_, feed), 0U);
  std::vector<double> prices;
  for (const PricePoint& row : pricePointsOf(database_, {{2, "us"}, {1, "us"}, {1, "de"}})) {
    prices.push_back(row.price);
  }
  EXPECT_EQ(prices, (std::vector<double>{1, 5.99, 4.99, 3.99}));
  EXPECT_EQ(library_.takeChanges().prices, (std::set<AppKey>{{1, "us"}, {2, "us"}}));
}

TEST_F(History, AChartIsRecordedOnceADay) {
  const std::string key = "chart-mac-topFree-us-0";
  const auto snapshot = [&](int day, std::vector<std::int64_t> order) {
    return ChartSnapshot{.chartKey = key, .day = dayAndSecond(day), .trackIds = std::move(order)};
  };
  addSnapshots(transaction_, {snapshot(1, {3, 1}), snapshot(2, {1}), snapshot(1, {9})});
  EXPECT_TRUE(isRecorded(database_, key, dayAndSecond(1)));
  EXPECT_FALSE(isRecorded(database_, key, dayAndSecond(3)));
  EXPECT_FALSE(snapshotBefore(database_, key, dayAndSecond(1)));
  const auto earlier = snapshotBefore(database_, key, dayAndSecond(2));
  ASSERT_TRUE(earlier);
  EXPECT_EQ(earlier->trackIds, (std::vector<std::int64_t>{3, 1}));
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
  page.ratingCount = 812;
  page.tagline = "Fold it";
  page.hasSubscription = true;
  page.deviceFamilies = {"mac"};
  CachedApp expected = page;
  page.releaseNotes = "Old";
  recordView(transaction_, page, dayAndSecond(1));
  refreshCachedApps(transaction_,
                    {cached(1, "Paperfold 2"), cached(2, "Inkwell"), cached(3, "Stranger")});

  const auto rows = cachedAppsOf(database_, {{1, "us"}, {2, "us"}, {3, "us"}});
  ASSERT_EQ(rows.size(), 2U);
  expected.id = 1;
  expected.name = "Paperfold 2";
  expected.lastViewedAt = dayAndSecond(1);
  EXPECT_EQ(rows[0], expected) << "release notes are the lookup's to say";
  EXPECT_EQ(rows[1].lastViewedAt, std::nullopt);
}

TEST_F(History, ListsFindWhatTheCacheKnowsOfTheirApps) {
  for (const std::int64_t trackId : {1, 2, 3, 4}) {
    CachedApp app = cached(trackId);
    app.rating = static_cast<double>(trackId);
    recordView(transaction_, app, dayAndSecond(1));
  }
  watchApps(transaction_, {watched(1), watched(2, "de"), watched(9)});
  addOwnedApps(transaction_, {owned(2)});
  const RowId writing = addCollection(transaction_, {0, "Writing", "pencil", {}});
  addEntries(transaction_, writing, {entry(3)});

  const auto ratingOfTheOne = [](const std::vector<CachedSummary>& found) {
    return found.size() == 1 ? found[0].rating : std::nullopt;
  };
  EXPECT_EQ(ratingOfTheOne(summariesOfWatched(database_)), 1) << "neither 2 of \"us\" nor 9";
  EXPECT_EQ(ratingOfTheOne(summariesOfOwned(database_)), 2);
  EXPECT_EQ(ratingOfTheOne(summariesOfEntries(database_, writing)), 3);
  EXPECT_EQ(ratingOfTheOne(summariesOf(database_, {{4, "us"}, {4, "de"}})), 4);
}

TEST_F(History, ForgettingViewsKeepsTheCacheAndIsUndone) {
  recordView(transaction_, cached(1, "Paperfold"), dayAndSecond(1));
  recordView(transaction_, cached(2, "Inkwell"), dayAndSecond(2));
  recordView(transaction_, cached(3, "Tern"), dayAndSecond(3));
  EXPECT_EQ(viewedApps(database_, 2).at(0).name, "Tern");
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
