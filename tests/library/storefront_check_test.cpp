// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/storefront_check.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/deals.h"
#include "library/library_export.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/recorded_history.h"
#include "library/store_rows.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

ITunesApp sold(std::int64_t trackId, std::optional<double> price, std::string currency = "USD",
               std::string version = "2.0", std::string kind = "mac-software") {
  return {.trackId = trackId,
          .trackName = "Paperfold",
          .kind = std::move(kind),
          .price = price,
          .formattedPrice = fmt::format("${:.2f}", price.value_or(0)),
          .currency = std::move(currency),
          .averageUserRating = 0,
          .userRatingCount = 0,
          .version = std::move(version)};
}

InAppPurchase purchase(const std::string& id, std::optional<double> price,
                       std::string currency = "USD") {
  return {.productId = id, .name = "Pro " + id, .price = price, .currency = std::move(currency)};
}

class StorefrontChecks : public MemoryLibraryTest {
 protected:
  StorefrontChecks() {
    row_.currency = "USD";
    row_.lastKnownVersion = "2.0";
    row_.lastCheckedAt = dayAndSecond(2);
    row_.alertOnAnyDrop = row_.alertOnNewVersion = row_.alertOnPurchasePrices = true;
  }

  /// Takes the check in; a row per event, as "kind old>new what".
  std::string events() {
    watchApps(transaction_, {row_});
    std::string lines;
    for (const PriceAlertEvent& event : recordStorefrontCheck(transaction_, check_)) {
      lines +=
          fmt::format("{} {}>{} {};", textOf(kAlertKindTexts, event.kind), event.oldPriceText,
                      event.newPriceText, event.version.value_or(event.purchaseName.value_or("")));
    }
    return lines;
  }
  std::string events(std::vector<ITunesApp> found) {
    check_.found = std::move(found);
    return events();
  }

  WatchedApp stored() { return watchedAppsOf(database_, {{1, "us"}}).at(0); }
  std::size_t points() { return pricePointsOf(database_, {{1, "us"}}).size(); }
  std::vector<Deal> deals() { return dealsOf(database_, {.country = "us"}); }

  WatchedApp row_ = watched(1);
  StorefrontCheck check_{.country = "us",
                         .when = dayAndSecond(5),
                         .asked = {1},
                         .priceText = [](double price, const auto& currency) {
                           return fmt::format("{:.2f} {}", price, currency.value_or("-"));
                         }};
};

TEST_F(StorefrontChecks, KeepPriceAlertAndPointTogetherAndAlertOnce) {
  EXPECT_EQ(events({sold(1, 1.99)}), "priceDrop 4.99 USD>1.99 USD ;");
  EXPECT_EQ(stored().currentPrice, 1.99);
  EXPECT_EQ(stored().formattedPrice, "$1.99");
  EXPECT_EQ(stored().lastCheckedAt, check_.when);
  EXPECT_EQ(points(), 1U);
  ASSERT_EQ(alerts(database_).size(), 1U);
  EXPECT_EQ(alerts(database_)[0].newPriceText, "1.99 USD");
  const CachedApp known = cachedAppsOf(database_, {{1, "us"}}).at(0);
  EXPECT_EQ(known.price, 1.99);
  EXPECT_EQ(known.ratingCount, std::nullopt) << "a lookup tells no ratings of Mac apps";
  EXPECT_EQ(deals().at(0).percentOff, 60.1);
  // The store's caches flap: up, and down again to what was told.
  EXPECT_EQ(events({sold(1, 4.99)}), "");
  EXPECT_EQ(events({sold(1, 1.99)}), "");
  EXPECT_EQ(points(), 3U);
}

TEST_F(StorefrontChecks, KeepAlertsThatTellTheSameLater) {
  watchApps(transaction_, {row_});
  addPurchasePoints(transaction_, {{0, 1, "us", "pro", "Pro", {}, 9, "USD", dayAndSecond(1)}});
  check_.found = {sold(1, 1.99, "USD", "3.0")};
  check_.purchases[1] = {purchase("pro", 12)};
  const auto raised = recordStorefrontCheck(transaction_, check_);
  ASSERT_EQ(raised.size(), 3U);
  std::vector<PriceAlertEvent> kept;
  for (const AlertRecord& record : alerts(database_)) kept.push_back(eventOf(record).value());
  EXPECT_EQ(kept, (std::vector{raised[2], raised[1], raised[0]})) << "the newest first";
  EXPECT_EQ(eventOf({.trackId = 1, .kindRaw = "preorder"}), std::nullopt);
}

TEST_F(StorefrontChecks, BearWhatTheStoreLeavesOut) {
  const WatchedApp before = row_;
  // Each case checks the app anew, and leaves the row as it was before.
  const auto outcome = [&](const ITunesApp& app) {
    database_.exec("DELETE FROM ZWATCHEDAPP; DELETE FROM ZPRICEPOINT");
    const std::string lines = events({app});
    row_ = before;
    EXPECT_EQ(stored().priceWhenAdded, 4.99);
    return fmt::format("{}{}, {} points, {}", lines, stored().currentPrice, points(),
                       stored().lastKnownVersion.value_or(""));
  };
  const std::string unchanged = "4.99, 0 points, 2.0";
  EXPECT_EQ(outcome(sold(1, 4.99)), unchanged);
  EXPECT_EQ(outcome(sold(1, std::nullopt)), unchanged);
  EXPECT_EQ(outcome(sold(1, 3, "EUR")), "3, 1 points, 2.0");
  EXPECT_EQ(outcome(sold(1, 4.99, "USD", "2.0.1")), "newVersion > 2.0.1;4.99, 0 points, 2.0.1");
  EXPECT_EQ(outcome(sold(1, 4.99, "USD", "1.9")), unchanged) << "an older version";
  EXPECT_EQ(outcome(sold(1, 4.99, "USD", "9.0", "software")), unchanged) << "of another build";
  row_.lastKnownVersion.reset();
  EXPECT_EQ(outcome(sold(1, 4.99)), unchanged) << "a version seen for the first time";
  row_.lastCheckedAt.reset();
  EXPECT_EQ(outcome(sold(1, 4.99)), "4.99, 1 points, 2.0") << "the first check begins the record";
  row_.mutedUntil = dayAndSecond(6);
  EXPECT_EQ(outcome(sold(1, 1, "USD", "3.0")), "1, 1 points, 3.0");
  row_.mutedUntil = dayAndSecond(5);
  EXPECT_EQ(outcome(sold(1, 1)), "priceDrop 4.99 USD>1.00 USD ;1, 1 points, 2.0");
  row_.formattedPrice = "$4.99 each";
  EXPECT_EQ(outcome(sold(1, 1)), "priceDrop $4.99 each>$1.00 ;1, 1 points, 2.0");
  row_.priceWhenAdded = row_.currentPrice = 0;
  EXPECT_EQ(outcome(sold(1, 4.99)), "4.99, 1 points, 2.0") << "it was added without a price";
}

TEST_F(StorefrontChecks, ACurrencyThatChangedEndsWhatWasComparedInTheOldOne) {
  row_.targetPrice = 3;
  events({sold(1, 2)});
  EXPECT_EQ(events({sold(1, 1, "EUR")}), "");
  EXPECT_EQ(stored().lastNotifiedPrice, std::nullopt);
  EXPECT_EQ(knownPriceWhenAdded(stored()), std::nullopt);
  EXPECT_EQ(events({sold(1, 0.9, "EUR")}), "priceDrop $1.00>$0.90 ;") << "below the old target";
  const WatchedItem handedOn = exportLibrary(database_, check_.when).watchlist.at(0);
  EXPECT_EQ(handedOn.priceWhenAdded, 0.9);
  EXPECT_EQ(handedOn.targetPrice, std::nullopt);

  WatchOptions options{.alertOnAnyDrop = true, .targetPrice = 0.8};
  const auto before = editWatches(transaction_, {{{1, "us"}, options}});
  EXPECT_EQ(events({sold(1, 0.7, "EUR")}), "targetReached $0.90>$0.70 ;");
  editWatches(transaction_, before);
  EXPECT_EQ(knownTargetPrice(stored()), std::nullopt) << "put back as it was";
  events({sold(1, 4.99, "USD")});
  EXPECT_EQ(knownTargetPrice(stored()), 3);
  EXPECT_EQ(knownPriceWhenAdded(stored()), 4.99);

  database_.exec("DELETE FROM ZWATCHEDAPP");
  row_.priceWhenAdded = row_.currentPrice = 0;
  events({sold(1, 2, "EUR")});
  EXPECT_EQ(knownPriceWhenAdded(stored()), 2) << "it was added without a price";
}

TEST_F(StorefrontChecks, AMissingCurrencySaysNothing) {
  EXPECT_EQ(events({sold(1, 0.5)}), "priceDrop 4.99 USD>0.50 USD ;");
  EXPECT_EQ(events({sold(1, 4.99, "")}), "");
  EXPECT_EQ(events({sold(1, 1.99, "EUR")}), "");
  EXPECT_EQ(events({sold(1, 0.99, "")}), "priceDrop $1.99>$0.99 ;");
  EXPECT_EQ(pricePointsOf(database_, {{1, "us"}}).back().currency, "EUR");
  EXPECT_EQ(deals().at(0).currency, "EUR");
  EXPECT_EQ(deals().at(0).lowestPrice, 0.99) << "half a dollar is no low in euros";
}

TEST_F(StorefrontChecks, WhatIsFreeHasAPriceWithoutAText) {
  const auto textless = [](double price) {
    ITunesApp app = sold(1, price);
    app.formattedPrice.reset();
    return app;
  };
  row_.alertOnFree = true;
  row_.formattedPrice = "$4.99";
  EXPECT_EQ(events({textless(0)}), "wentFree $4.99>Free ;");
  EXPECT_EQ(stored().formattedPrice, "Free");
  EXPECT_EQ(events({textless(0)}), "");
  EXPECT_EQ(points(), 1U) << "it is as it was";
  EXPECT_EQ(stored().priceWhenAdded, 4.99);

  database_.exec("DELETE FROM ZWATCHEDAPP");
  row_.currentPrice = 0;
  row_.formattedPrice.reset();
  events({textless(0)});
  EXPECT_EQ(points(), 1U) << "a row of another program says it without a text as well";
  EXPECT_EQ(stored().priceWhenAdded, 4.99);

  database_.exec("DELETE FROM ZWATCHEDAPP");
  row_ = watchedAppOf(textless(0), {"us", Platform::mac, dayAndSecond(1)});
  events({textless(2.99)});
  EXPECT_EQ(stored().priceWhenAdded, 0) << "it was free when it was added";
}

TEST_F(StorefrontChecks, CompleteAnAppThatWasImported) {
  row_.currency.reset();
  ITunesApp app = sold(1, 1.99);
  app.sellerName = "Quire Works";
  app.artworkUrl100 = "https://pictures.example/1.png";
  app.trackViewUrl = "https://store.example/app/id1";
  EXPECT_EQ(events({app}), "priceDrop 4.99 USD>1.99 USD ;");
  EXPECT_EQ(stored().sellerName, app.sellerName);
  EXPECT_EQ(stored().artworkUrl, app.artworkUrl100);
  EXPECT_EQ(stored().trackViewUrl, app.trackViewUrl);
  EXPECT_EQ(alerts(database_).at(0).artworkUrl, app.artworkUrl100);
}

TEST_F(StorefrontChecks, ADealHasItsLowestPricesLatestDateAndEndsWithTheSale) {
  const std::vector<ITunesApp> ends[] = {{sold(1, 4.99)}, {sold(1, 1, "EUR")}, {}};
  for (const auto& end : ends) {
    for (const double price : {0.99, 4.99, 0.99, 4.99, 1.99}) {
      events({sold(1, price)});
      check_.when += std::chrono::hours(24);
    }
    ASSERT_EQ(deals().size(), 1U);
    EXPECT_EQ(deals()[0].lowestPrice, 0.99);
    EXPECT_EQ(deals()[0].lowestOn, check_.when - std::chrono::hours(3 * 24));
    events(end);
    EXPECT_EQ(deals().size(), 0U);
  }
}

TEST_F(StorefrontChecks, AnAppMayGoAndComeBackOrBeWatchedNoLonger) {
  EXPECT_EQ(events(), "");
  EXPECT_TRUE(stored().isUnavailable);
  EXPECT_EQ(stored().currentPrice, 4.99);
  check_.asked = {1, 2};
  EXPECT_EQ(events({sold(1, 4.99), sold(2, 1)}), "");
  EXPECT_FALSE(stored().isUnavailable);
  EXPECT_EQ(watchedApps(database_).size(), 1U) << "nothing is watched by a check";
}

TEST_F(StorefrontChecks, PurchasesAreRecordedOnceAndAlertedAsOneWhenSeveralChange) {
  check_.found = {sold(1, 4.99)};
  const auto outcome = [&](std::vector<InAppPurchase> told) {
    check_.purchases[1] = std::move(told);
    check_.when += std::chrono::hours(1);
    const std::string lines = events();
    return fmt::format("{}{} points", lines, purchasePointsOf(database_, {{1, "us"}}).size());
  };
  EXPECT_EQ(outcome({purchase("a", 5), purchase("b", 50), purchase("c", {}), purchase("", 1)}),
            "3 points");
  EXPECT_EQ(outcome({purchase("a", 5.0005), purchase("b", 50), purchase("", 1)}), "3 points");
  EXPECT_EQ(outcome({purchase("a", 6)}), "purchaseRise 5.00 USD>6.00 USD Pro a;4 points");
  EXPECT_EQ(outcome({purchase("a", 4), purchase("b", 40)}), "purchaseDrop > ;6 points");
  EXPECT_EQ(outcome({purchase("a", 4, "EUR")}), "7 points");
  EXPECT_EQ(outcome({purchase("a", 4, "")}), "7 points");
  EXPECT_EQ(outcome({purchase("a", 9, "USD")}), "8 points") << "dollars follow euros";
  InAppPurchase nameless = purchase("a", 8);
  nameless.name.clear();
  EXPECT_EQ(outcome({nameless}), "purchaseDrop 9.00 USD>8.00 USD ;9 points");
  EXPECT_EQ(alerts(database_).at(0).purchaseName, std::nullopt);
}

}  // namespace
}  // namespace quillet
