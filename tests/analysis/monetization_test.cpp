// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/monetization.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Price = std::optional<double>;
using Flag = std::optional<bool>;
constexpr Flag kYes = true;
constexpr Flag kNo = false;
constexpr Flag kUnknown;

std::string_view word(MonetizationModel model) { return textOf(kMonetizationModelTexts, model); }

TEST(Monetization, modelByFlagsAndPrice) {
  using enum MonetizationModel;
  // Whether it sells anything, a subscription, an unlock; its price.
  const std::tuple<Flag, Flag, Flag, Price, MonetizationModel> rows[] = {
      {kNo, kUnknown, kUnknown, 0.0, MonetizationModel::free},
      {kNo, kYes, kYes, 4.99, paidOnce},
      {kYes, kYes, kUnknown, {}, subscriptionPresent},
      {kUnknown, kYes, kNo, {}, subscriptionOnly},
      {kUnknown, kNo, kYes, {}, oneTimeOnly},
      {kYes, kNo, kUnknown, {}, hasPurchases},
      {kUnknown, kNo, kNo, 4.99, paidOnce},
      {kYes, kUnknown, kNo, {}, hasPurchases},
      {kUnknown, kUnknown, kNo, 4.99, unknown},
  };
  for (const auto& [purchases, subscription, unlock, price, model] : rows) {
    const ITunesApp app{.price = price,
                        .hasInAppPurchases = purchases,
                        .hasSubscription = subscription,
                        .hasUnlockPurchase = unlock};
    EXPECT_EQ(word(monetizationModel(app)), word(model));
  }
}

TEST(Monetization, modelByPurchases) {
  const InAppPurchase subscription{.name = "Plus", .isSubscription = true};
  const InAppPurchase unlock{.name = "Remove Ads"};
  // Extras and what cannot be told change no verdict on what already sells something.
  const InAppPurchase coins{.name = "100 Coins"};
  const InAppPurchase unclear{.name = "Night Theme"};
  using enum MonetizationModel;
  const std::tuple<std::vector<InAppPurchase>, Price, MonetizationModel> rows[] = {
      {{}, 0.0, MonetizationModel::free},
      {{}, 4.99, paidOnce},
      {{subscription}, {}, subscriptionOnly},
      {{coins, subscription, unclear}, 4.99, subscriptionOnly},
      {{coins, unclear, unlock}, 0.0, oneTimeOnly},
      {{unlock, subscription, coins}, 4.99, subscriptionOrOneTime},
      {{{.name = "Tip Jar"}}, 4.99, extrasOnly},
      {{unclear}, {}, extrasOnly},
  };
  for (const auto& [purchases, price, model] : rows) {
    ITunesApp app{.price = price};
    setPurchaseFlags(app, purchases);
    EXPECT_EQ(word(monetizationModel(purchases, price)), word(model));
    EXPECT_EQ(word(monetizationModel(app)), word(model));
  }
}

}  // namespace
}  // namespace quillet
