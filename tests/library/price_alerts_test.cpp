// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_alerts.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PriceAlerts, SayWhatHappened) {
  using enum AlertKind;
  const std::pair<PriceAlertEvent, const char*> rows[] = {
      {{7, "Ink", priceDrop, "$4", "$1", {}, {}}, "7--$1-priceDrop: Ink dropped in price: $4 → $1"},
      {{7, "Ink", wentFree, "$4", "Free", {}, {}},
       "7--Free-wentFree: Ink is now free: Was $4 — now free."},
      {{7, "Ink", targetReached, "$4", "$1", {}, {}},
       "7--$1-targetReached: Ink hit your target price: $4 → $1"},
      {{7, "Ink", newVersion, "", "", "2.0", {}},
       "7---newVersion: Ink was updated: Version 2.0 is now available."},
      {{7, "Ink", newVersion, "", "", {}, {}},
       "7---newVersion: Ink was updated: A new version is available."},
      {{7, "Ink", purchaseDrop, "$9", "$5", {}, "Pro"},
       "7-Pro-$5-purchaseDrop: Ink: Pro is cheaper: $9 → $5"},
      {{7, "Ink", purchaseRise, "$5", "$9", {}, {}},
       "7--$9-purchaseRise: Ink: In-app purchase costs more: $5 → $9"},
      {{7, "Ink", purchaseDrop, "$9", "$5", {}, " "},
       "7- -$5-purchaseDrop: Ink: In-app purchase is cheaper: $9 → $5"},
      {{7, "Ink", purchaseRise, "", "", {}, {}},
       "7---purchaseRise: Ink: In-app purchases changed price: Open Quillet to see the new "
       "prices."},
  };
  for (const auto& [event, expected] : rows)
    EXPECT_EQ(identityOf(event) + ": " + titleOf(event) + ": " + bodyOf(event), expected);
}

TEST(PriceAlerts, ADropRaisesWhatWasAskedForFreeBeforeTargetBeforeAnyDrop) {
  using enum AlertKind;
  WatchedApp app{
      .currentPrice = 4.99, .alertOnAnyDrop = true, .alertOnFree = true, .targetPrice = 3.99};
  EXPECT_EQ(alertOfDrop(app, 4.9895), std::nullopt) << "within the tolerance";
  EXPECT_EQ(alertOfDrop(app, 4.988), priceDrop);
  EXPECT_EQ(alertOfDrop(app, 4.00), priceDrop);
  EXPECT_EQ(alertOfDrop(app, 3.99), targetReached);
  EXPECT_EQ(alertOfDrop(app, 0.001), targetReached);
  EXPECT_EQ(alertOfDrop(app, 0), wentFree);
  app.lastNotifiedPrice = 3.9905;
  EXPECT_EQ(alertOfDrop(app, 3.99), std::nullopt) << "told before";
  EXPECT_EQ(alertOfDrop(app, 2.99), targetReached);
  app.alertOnFree = false;
  EXPECT_EQ(alertOfDrop(app, 0), targetReached);
  app.targetPrice = 9;
  EXPECT_EQ(alertOfDrop(app, 4.9895), std::nullopt) << "the target was reached before";
  app.currency = "EUR";
  app.targetCurrency = "BGN";
  EXPECT_EQ(alertOfDrop(app, 2.99), priceDrop) << "a target in another currency is none";
  app.targetPrice.reset();
  EXPECT_EQ(alertOfDrop(app, 0), priceDrop);
  app.alertOnAnyDrop = false;
  EXPECT_EQ(alertOfDrop(app, 0), std::nullopt) << "nothing was asked for";
}

}  // namespace
}  // namespace quillet
