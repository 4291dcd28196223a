// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/monetization.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Flag = std::optional<bool>;
constexpr Flag kYes = true;
constexpr Flag kNo = false;
constexpr Flag kUnknown;

TEST(Monetization, modelByFlagsAndPrice) {
  struct Row {
    Flag purchases;
    Flag subscription;
    Flag unlock;
    std::optional<double> price;
    MonetizationModel model;
  };
  using enum MonetizationModel;
  const Row rows[] = {
      {kNo, kUnknown, kUnknown, 0.0, MonetizationModel::free},
      {kNo, kYes, kYes, 4.99, paidOnce},
      {kYes, kYes, kUnknown, {}, subscriptionPresent},
      {kUnknown, kYes, kNo, {}, subscriptionOnly},
      {kUnknown, kNo, kYes, {}, oneTimeOnly},
      {kYes, kNo, kUnknown, {}, hasPurchases},
      {kUnknown, kNo, kUnknown, {}, unknown},
      {kYes, kNo, kNo, 4.99, extrasOnly},
      {kUnknown, kNo, kNo, 4.99, paidOnce},
      {kUnknown, kNo, kNo, 0.0, MonetizationModel::free},
      {kYes, kUnknown, kUnknown, {}, hasPurchases},
      {kUnknown, kUnknown, kYes, {}, oneTimeOnly},
      {kYes, kUnknown, kNo, {}, hasPurchases},
      {kUnknown, kUnknown, kNo, 4.99, unknown},
      {kUnknown, kUnknown, kUnknown, 4.99, unknown},
  };
  for (const Row& row : rows) {
    ITunesApp app;
    app.hasInAppPurchases = row.purchases;
    app.hasSubscription = row.subscription;
    app.hasUnlockPurchase = row.unlock;
    app.price = row.price;
    EXPECT_EQ(textOf(kMonetizationModelTexts, monetizationModel(app)),
              textOf(kMonetizationModelTexts, row.model))
        << "row " << &row - rows;
  }
}

TEST(Monetization, modelByPurchases) {
  const InAppPurchase subscription{.name = "Plus", .isSubscription = true};
  const InAppPurchase unlock{.name = "Remove Ads"};
  struct Row {
    std::vector<InAppPurchase> purchases;
    MonetizationModel atNoPrice;
    MonetizationModel atAPrice;
  };
  using enum MonetizationModel;
  std::vector<Row> rows = {
      {{}, MonetizationModel::free, paidOnce},
      {{subscription}, subscriptionOnly, subscriptionOnly},
      {{unlock}, oneTimeOnly, oneTimeOnly},
      {{unlock, subscription}, subscriptionOrOneTime, subscriptionOrOneTime},
      {{{.name = "Tip Jar"}}, extrasOnly, extrasOnly},
  };
  // Extras and what cannot be told change no verdict on what already sells something.
  for (std::size_t i = 1; i < 4; ++i) {
    rows.push_back(rows[i]);
    rows.back().purchases.push_back({.name = "100 Coins"});
    rows.back().purchases.push_back({.name = "Night Theme"});
  }
  for (const Row& row : rows) {
    for (const std::optional<double> price : {std::optional<double>{}, {0.0}, {4.99}}) {
      ITunesApp app;
      app.price = price;
      setPurchaseFlags(app, row.purchases);
      const MonetizationModel expected = price == 4.99 ? row.atAPrice : row.atNoPrice;
      EXPECT_EQ(monetizationModel(row.purchases, price), expected) << "row " << &row - rows.data();
      EXPECT_EQ(monetizationModel(app), expected) << "row " << &row - rows.data();
    }
  }
}

}  // namespace
}  // namespace quillet
