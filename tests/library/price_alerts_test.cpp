// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_alerts.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PriceAlerts, SayWhatHappened) {
  using enum AlertKind;
  const std::pair<PriceAlertEvent, const char*> rows[] = {
      {{7, "Amber", priceDrop, "$4.99", "$1.99", {}, {}},
       "7--$1.99-priceDrop: Amber dropped in price: $4.99 → $1.99"},
      {{7, "Amber", wentFree, "$4.99", "Free", {}, {}},
       "7--Free-wentFree: Amber is now free: Was $4.99 — now free."},
      {{7, "Amber", targetReached, "$4.99", "$1.99", {}, {}},
       "7--$1.99-targetReached: Amber hit your target price: $4.99 → $1.99"},
      {{7, "Amber", newVersion, "", "", "2.0", {}},
       "7---newVersion: Amber was updated: Version 2.0 is now available."},
      {{7, "Amber", newVersion, "", "", {}, {}},
       "7---newVersion: Amber was updated: A new version is available."},
      {{7, "Amber", purchaseDrop, "$9", "$5", {}, "Pro"},
       "7-Pro-$5-purchaseDrop: Amber: Pro is cheaper: $9 → $5"},
      {{7, "Amber", purchaseRise, "$5", "$9", {}, {}},
       "7--$9-purchaseRise: Amber: In-app purchase costs more: $5 → $9"},
      {{7, "Amber", purchaseRise, "", "", {}, {}},
       "7---purchaseRise: Amber: In-app purchases changed price: Open Quillet to see the new "
       "prices."},
  };
  for (const auto& [event, expected] : rows)
    EXPECT_EQ(identityOf(event) + ": " + titleOf(event) + ": " + bodyOf(event), expected);
}

TEST(PriceAlerts, ADropRaisesWhatWasAskedForFreeBeforeTargetBeforeAnyDrop) {
  using enum AlertKind;
  struct Row {
    const char* situation;
    double price;
    bool onDrop, onFree;
    std::optional<double> target, notified;
    std::optional<AlertKind> expected;
  };
  const Row rows[] = {
      {"the same price", 4.99, true, true, 9.0, {}, {}},
      {"a rise", 5.99, true, true, 9.0, {}, {}},
      {"within the tolerance", 4.9895, true, true, 9.0, {}, {}},
      {"just beyond the tolerance", 4.988, true, true, {}, {}, priceDrop},
      {"nothing asked for", 3.99, false, false, {}, {}, {}},
      {"alerted before", 3.99, true, true, 9.0, 3.9905, {}},
      {"lower than alerted before", 2.99, true, true, {}, 3.99, priceDrop},
      {"the target exactly", 3.99, true, true, 3.99, {}, targetReached},
      {"above the target", 4.00, true, true, 3.99, {}, priceDrop},
      {"free", 0, true, true, 3.99, {}, wentFree},
      {"free, which was not asked for, below the target", 0, true, false, 3.99, {}, targetReached},
      {"nearly free", 0.001, true, true, {}, {}, priceDrop},
  };
  for (const Row& row : rows) {
    WatchedApp app;
    app.currentPrice = 4.99;
    app.alertOnAnyDrop = row.onDrop;
    app.alertOnFree = row.onFree;
    app.targetPrice = row.target;
    app.lastNotifiedPrice = row.notified;
    EXPECT_EQ(alertOfDrop(app, row.price), row.expected) << row.situation;
  }
}

}  // namespace
}  // namespace quillet
