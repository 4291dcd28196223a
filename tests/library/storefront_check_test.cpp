// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/storefront_check.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/deals.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

ITunesApp sold(std::int64_t trackId, double price) {
  ITunesApp app;
  app.trackId = trackId;
  app.trackName = "Paperfold";
  app.kind = kMacSoftwareKind;
  app.price = price;
  app.formattedPrice = fmt::format("${:.2f}", price);
  app.currency = "USD";
  app.version = "2.0";
  return app;
}

InAppPurchase purchase(const std::string& id, double price) {
  InAppPurchase one;
  one.productId = id;
  one.name = "Pro " + id;
  one.price = price;
  one.priceFormatted = fmt::format("${:.2f}", price);
  one.currency = "USD";
  one.recurringSubscriptionPeriod = "P1M";
  return one;
}

class StorefrontChecks : public MemoryLibraryTest {
 protected:
  StorefrontChecks() {
    row_ = watched(1);
    row_.currency = "USD";
    row_.lastKnownVersion = "2.0";
    row_.lastCheckedAt = dayAndSecond(2);
    row_.alertOnAnyDrop = row_.alertOnNewVersion = row_.alertOnPurchasePrices = true;
    check_.country = "us";
    check_.when = dayAndSecond(5);
    check_.asked = {1};
    check_.priceText = [](double price, const std::optional<std::string>& currency) {
      return fmt::format("{:.2f} {}", price, currency.value_or("-"));
    };
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

  WatchedApp stored() { return watchedAppsOf(database_, {{1, "us"}}).at(0); }

  WatchedApp row_;
  StorefrontCheck check_;
};

TEST_F(StorefrontChecks, KeepPriceAlertAndPointTogetherAndAlertOnce) {
  check_.found = {sold(1, 1.99)};
  EXPECT_EQ(events(), "priceDrop 4.99 USD>1.99 USD ;");
  EXPECT_EQ(stored().currentPrice, 1.99);
  EXPECT_EQ(stored().formattedPrice, "$1.99");
  EXPECT_EQ(stored().lastNotifiedPrice, 1.99);
  EXPECT_EQ(stored().lastCheckedAt, check_.when);
  EXPECT_EQ(pricePointsOf(database_, {{1, "us"}}).size(), 1U);
  ASSERT_EQ(alerts(database_).size(), 1U);
  EXPECT_FALSE(alerts(database_)[0].isRead);
  EXPECT_EQ(alerts(database_)[0].newPriceText, "1.99 USD");
  EXPECT_EQ(cachedAppsOf(database_, {{1, "us"}}).at(0).price, 1.99);
  ASSERT_EQ(dealsOf(database_, {.country = "us"}).size(), 1U);
  EXPECT_EQ(dealsOf(database_, {.country = "us"})[0].percentOff, 60.1);
  // The store's caches flap: up, and down again to what was told.
  check_.found = {sold(1, 4.99)};
  EXPECT_EQ(events(), "");
  EXPECT_EQ(dealsOf(database_, {.country = "us"}).size(), 0U) << "it is no deal any more";
  check_.found = {sold(1, 1.99)};
  EXPECT_EQ(events(), "");
  EXPECT_EQ(pricePointsOf(database_, {{1, "us"}}).size(), 3U);
}

TEST_F(StorefrontChecks, BearWhatTheStoreLeavesOut) {
  struct Row {
    const char* situation;
    void (*change)(WatchedApp&, ITunesApp&);
    const char* events;
    double price;
    std::size_t points;
    const char* version;
  };
  const Row rows[] = {
      {"nothing changed", [](WatchedApp&, ITunesApp&) {}, "", 4.99, 0, "2.0"},
      {"the first check begins the record",
       [](WatchedApp& row, ITunesApp&) { row.lastCheckedAt.reset(); }, "", 4.99, 1, "2.0"},
      {"no price", [](WatchedApp&, ITunesApp& app) { app.price.reset(); }, "", 4.99, 0, "2.0"},
      {"another currency",
       [](WatchedApp&, ITunesApp& app) {
         app.price = 3;
         app.currency = "EUR";
       },
       "", 3, 1, "2.0"},
      {"a newer version", [](WatchedApp&, ITunesApp& app) { app.version = "2.0.1"; },
       "newVersion > 2.0.1;", 4.99, 0, "2.0.1"},
      {"an older version", [](WatchedApp&, ITunesApp& app) { app.version = "1.9"; }, "", 4.99, 0,
       "2.0"},
      {"a version seen for the first time",
       [](WatchedApp& row, ITunesApp&) { row.lastKnownVersion.reset(); }, "", 4.99, 0, "2.0"},
      {"the version of another build",
       [](WatchedApp&, ITunesApp& app) {
         app.kind = "software";
         app.version = "9.0";
       },
       "", 4.99, 0, "2.0"},
      {"muted",
       [](WatchedApp& row, ITunesApp& app) {
         row.mutedUntil = dayAndSecond(6);
         app.price = 1;
         app.version = "3.0";
       },
       "", 1, 1, "3.0"},
      {"muted until now",
       [](WatchedApp& row, ITunesApp& app) {
         row.mutedUntil = dayAndSecond(5);
         app.price = 1;
       },
       "priceDrop 4.99 USD>1.00 USD ;", 1, 1, "2.0"},
      {"the store's texts of both prices",
       [](WatchedApp& row, ITunesApp& app) {
         row.formattedPrice = "$4.99 each";
         app.price = 1;
       },
       "priceDrop $4.99 each>$4.99 ;", 1, 1, "2.0"},
      {"the first price of an app that was added without one",
       [](WatchedApp& row, ITunesApp&) { row.priceWhenAdded = row.currentPrice = 0; }, "", 4.99, 1,
       "2.0"},
  };
  for (const Row& row : rows) {
    const WatchedApp kept = row_;
    ITunesApp app = sold(1, 4.99);
    row.change(row_, app);
    check_.found = {app};
    EXPECT_EQ(events(), row.events) << row.situation;
    EXPECT_EQ(stored().currentPrice, row.price) << row.situation;
    EXPECT_EQ(stored().priceWhenAdded, 4.99) << row.situation;
    EXPECT_EQ(pricePointsOf(database_, {{1, "us"}}).size(), row.points) << row.situation;
    EXPECT_EQ(stored().lastKnownVersion, row.version) << row.situation;
    database_.exec("DELETE FROM ZWATCHEDAPP; DELETE FROM ZPRICEPOINT");
    row_ = kept;
  }
}

TEST_F(StorefrontChecks, ADealHasItsLowestPricesLatestDateAndEndsWithTheSale) {
  ITunesApp inEuros = sold(1, 1);
  inEuros.currency = "EUR";
  const std::vector<ITunesApp> ends[] = {{sold(1, 4.99)}, {inEuros}, {}};
  for (const auto& end : ends) {
    for (const double price : {0.99, 4.99, 0.99, 4.99, 1.99}) {
      check_.found = {sold(1, price)};
      events();
      check_.when += std::chrono::hours(24);
    }
    const auto deals = dealsOf(database_, {.country = "us"});
    ASSERT_EQ(deals.size(), 1U);
    EXPECT_EQ(deals[0].lowestPrice, 0.99);
    EXPECT_EQ(deals[0].lowestOn, check_.when - std::chrono::hours(3 * 24));
    check_.found = end;
    events();
    EXPECT_EQ(dealsOf(database_, {.country = "us"}).size(), 0U);
  }
}

TEST_F(StorefrontChecks, AnAppMayGoAndComeBackOrBeWatchedNoLonger) {
  EXPECT_EQ(events(), "");
  EXPECT_TRUE(stored().isUnavailable);
  EXPECT_EQ(stored().currentPrice, 4.99);
  check_.found = {sold(1, 4.99), sold(2, 1)};
  check_.asked = {1, 2};
  EXPECT_EQ(events(), "");
  EXPECT_FALSE(stored().isUnavailable);
  EXPECT_EQ(watchedApps(database_).size(), 1U) << "nothing is watched by a check";
}

TEST_F(StorefrontChecks, PurchasesAreRecordedOnceAndAlertedAsOneWhenSeveralChange) {
  struct Row {
    const char* situation;
    std::vector<InAppPurchase> told;
    const char* events;
    std::size_t points;
  };
  InAppPurchase inEuros = purchase("a", 4);
  inEuros.currency = "EUR";
  InAppPurchase unpriced = purchase("c", 0);
  unpriced.price.reset();
  InAppPurchase unnamed = purchase("", 1);
  const Row rows[] = {
      {"first seen", {purchase("a", 5), purchase("b", 50), unpriced, unnamed}, "", 3},
      {"as before", {purchase("a", 5.0005), purchase("b", 50), unnamed}, "", 3},
      {"one rose",
       {purchase("a", 6), purchase("b", 50)},
       "purchaseRise 5.00 USD>6.00 USD Pro a;",
       4},
      {"two fell", {purchase("a", 4), purchase("b", 40)}, "purchaseDrop > ;", 6},
      {"another currency", {inEuros}, "", 7},
  };
  check_.found = {sold(1, 4.99)};
  for (const Row& row : rows) {
    check_.purchases[1] = row.told;
    EXPECT_EQ(events(), row.events) << row.situation;
    EXPECT_EQ(purchasePointsOf(database_, {{1, "us"}}).size(), row.points) << row.situation;
    check_.when += std::chrono::hours(1);
  }
}

}  // namespace
}  // namespace quillet
