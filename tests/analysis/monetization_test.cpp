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
      {kNo, kUnknown, kUnknown, {}, MonetizationModel::free},
      {kNo, kUnknown, kUnknown, 0.0, MonetizationModel::free},
      {kNo, kYes, kYes, 4.99, paidOnce},
      {kYes, kYes, kUnknown, {}, subscriptionPresent},
      {kUnknown, kYes, kYes, {}, subscriptionOrOneTime},
      {kUnknown, kYes, kNo, {}, subscriptionOnly},
      {kUnknown, kNo, kYes, {}, oneTimeOnly},
      {kYes, kNo, kUnknown, {}, hasPurchases},
      {kUnknown, kNo, kUnknown, {}, unknown},
      {kYes, kNo, kNo, 4.99, extrasOnly},
      {kUnknown, kNo, kNo, 4.99, paidOnce},
      {kUnknown, kNo, kNo, 0.0, MonetizationModel::free},
      {kUnknown, kUnknown, kYes, {}, oneTimeOnly},
      {kYes, kUnknown, kUnknown, {}, hasPurchases},
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

}  // namespace
}  // namespace quillet
