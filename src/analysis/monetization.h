// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/enum_table.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// How an app earns its money.
enum class MonetizationModel {
  paidOnce,               ///< a price, and nothing sold inside
  free,                   ///< no price, and nothing sold inside
  oneTimeOnly,            ///< unlocked by a one-time purchase
  extrasOnly,             ///< sells consumables or tips, no way to unlock the app
  subscriptionPresent,    ///< sells a subscription; whether anything else is not known
  hasPurchases,           ///< sells something inside; of which kind is not known
  subscriptionOnly,       ///< sells subscriptions alone
  subscriptionOrOneTime,  ///< sells a subscription and a one-time unlock
  unknown,
};

// Stored; never change.
inline constexpr EnumTable<MonetizationModel, 9> kMonetizationModelTexts{{
    {MonetizationModel::paidOnce, "paidOnce"},
    {MonetizationModel::free, "free"},
    {MonetizationModel::oneTimeOnly, "oneTimeOnly"},
    {MonetizationModel::extrasOnly, "extrasOnly"},
    {MonetizationModel::subscriptionPresent, "subscriptionPresent"},
    {MonetizationModel::hasPurchases, "hasPurchases"},
    {MonetizationModel::subscriptionOnly, "subscriptionOnly"},
    {MonetizationModel::subscriptionOrOneTime, "subscriptionOrOneTime"},
    {MonetizationModel::unknown, "unknown"},
}};
static_assert(isComplete(kMonetizationModelTexts, MonetizationModel::unknown));

/// Read from the record's price and its three flags on purchases alone. Says no more than they do:
/// a model that needs an unknown flag becomes a vaguer one. An unknown price is no price.
[[nodiscard]] MonetizationModel monetizationModel(const ITunesApp& app);

}  // namespace quillet
