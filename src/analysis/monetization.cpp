// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/monetization.h"

#include <algorithm>

#include "analysis/purchase_cost.h"
#include "analysis/purchase_kind.h"

namespace quillet {

namespace {

constexpr EnumTable<MonetizationModel, 9> kBadgeTitles{{
    {MonetizationModel::paidOnce, ""},
    {MonetizationModel::free, ""},
    {MonetizationModel::oneTimeOnly, "Can be unlocked with a one-time purchase — no subscription"},
    {MonetizationModel::extrasOnly,
     "Sells extras — consumables or tips — rather than a way to unlock the app"},
    {MonetizationModel::subscriptionPresent, "Offers an auto-renewing subscription"},
    {MonetizationModel::hasPurchases, "Offers in-app purchases"},
    {MonetizationModel::subscriptionOnly,
     "Subscription only — no advertised way to buy it outright"},
    {MonetizationModel::subscriptionOrOneTime,
     "Sells a subscription, but can also be bought outright"},
    {MonetizationModel::unknown, ""},
}};
static_assert(isComplete(kBadgeTitles, MonetizationModel::unknown));

constexpr EnumTable<MonetizationModel, 9> kExplanations{{
    {MonetizationModel::paidOnce, "You pay once for the app and nothing else is sold inside it."},
    {MonetizationModel::free, "Free, with nothing sold inside the app."},
    {MonetizationModel::oneTimeOnly,
     "This app can be unlocked with a one-time purchase rather than a subscription."},
    {MonetizationModel::extrasOnly,
     "The purchases here look like consumables or tips — coin packs, passes, donations — rather "
     "than a way to unlock the app. Apple doesn't publish which purchases are consumable, so this "
     "is read from their names."},
    {MonetizationModel::subscriptionPresent,
     "This app sells an auto-renewing subscription. Whether anything can also be bought outright "
     "isn't known yet."},
    {MonetizationModel::hasPurchases,
     "This app sells something inside. Quillet hasn't read what kind yet."},
    {MonetizationModel::subscriptionOnly,
     "Every purchase inside this app is a subscription. There's no advertised way to buy it "
     "outright."},
    {MonetizationModel::subscriptionOrOneTime,
     "This app sells both. You can subscribe, or pay once instead — see the prices below."},
    {MonetizationModel::unknown, ""},
}};
static_assert(isComplete(kExplanations, MonetizationModel::unknown));

std::optional<std::string_view> unlessEmpty(std::string_view text) {
  if (text.empty()) return {};
  return text;
}

bool holds(std::span<const InAppPurchase> purchases, PurchaseKind kind) {
  return std::ranges::find(purchases, kind, purchaseKind) != purchases.end();
}

MonetizationModel withNothingInside(std::optional<double> price) {
  return price.value_or(0) == 0 ? MonetizationModel::free : MonetizationModel::paidOnce;
}

MonetizationModel withSubscription(const ITunesApp& app) {
  if (!app.hasUnlockPurchase) return MonetizationModel::subscriptionPresent;
  return *app.hasUnlockPurchase ? MonetizationModel::subscriptionOrOneTime
                                : MonetizationModel::subscriptionOnly;
}

/// Something may be sold inside, but of which kind is not known.
MonetizationModel withPurchasesAtMost(const ITunesApp& app) {
  return app.hasInAppPurchases == true ? MonetizationModel::hasPurchases
                                       : MonetizationModel::unknown;
}

MonetizationModel withExtrasAtMost(const ITunesApp& app) {
  return app.hasInAppPurchases == true ? MonetizationModel::extrasOnly
                                       : withNothingInside(app.price);
}

}  // namespace

MonetizationModel monetizationModel(const ITunesApp& app) {
  if (app.hasInAppPurchases == false) return withNothingInside(app.price);
  if (app.hasSubscription == true) return withSubscription(app);
  if (app.hasUnlockPurchase == true) return MonetizationModel::oneTimeOnly;
  const bool allKinds = app.hasSubscription == false && app.hasUnlockPurchase == false;
  return allKinds ? withExtrasAtMost(app) : withPurchasesAtMost(app);
}

MonetizationModel monetizationModel(std::span<const InAppPurchase> purchases,
                                    std::optional<double> price) {
  if (purchases.empty()) return withNothingInside(price);
  const bool unlock = holds(purchases, PurchaseKind::unlock);
  if (holds(purchases, PurchaseKind::subscription)) {
    return unlock ? MonetizationModel::subscriptionOrOneTime : MonetizationModel::subscriptionOnly;
  }
  return unlock ? MonetizationModel::oneTimeOnly : MonetizationModel::extrasOnly;
}

void setPurchaseFlags(ITunesApp& app, std::span<const InAppPurchase> purchases) {
  app.hasInAppPurchases = !purchases.empty();
  app.hasSubscription = holds(purchases, PurchaseKind::subscription);
  app.hasUnlockPurchase = holds(purchases, PurchaseKind::unlock);
  app.insideCost = insideCost(purchases);
}

std::optional<std::string_view> badgeTitle(MonetizationModel model) {
  return unlessEmpty(textOf(kBadgeTitles, model));
}

std::optional<std::string_view> explanation(MonetizationModel model) {
  return unlessEmpty(textOf(kExplanations, model));
}

}  // namespace quillet
