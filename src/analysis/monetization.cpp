// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/monetization.h"

namespace quillet {

namespace {

MonetizationModel withNothingInside(const ITunesApp& app) {
  return app.price.value_or(0) == 0 ? MonetizationModel::free : MonetizationModel::paidOnce;
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
  return app.hasInAppPurchases == true ? MonetizationModel::extrasOnly : withNothingInside(app);
}

}  // namespace

MonetizationModel monetizationModel(const ITunesApp& app) {
  if (app.hasInAppPurchases == false) return withNothingInside(app);
  if (app.hasSubscription == true) return withSubscription(app);
  if (app.hasUnlockPurchase == true) return MonetizationModel::oneTimeOnly;
  const bool allKinds = app.hasSubscription == false && app.hasUnlockPurchase == false;
  return allKinds ? withExtrasAtMost(app) : withPurchasesAtMost(app);
}

}  // namespace quillet
