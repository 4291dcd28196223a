// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "base/enum_table.h"
#include "store/records/in_app_purchase.h"
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

/// Read from everything that is sold inside the app and the app's own price, which decides only
/// where nothing is. An unknown price is no price. Never one of the vaguer models.
[[nodiscard]] MonetizationModel monetizationModel(std::span<const InAppPurchase> purchases,
                                                  std::optional<double> price);

/// Writes down in the record's three flags, and as the cost inside, what a complete list of
/// purchases says, so that both forms of the verdict agree.
void setPurchaseFlags(ITunesApp& app, std::span<const InAppPurchase> purchases);

/// The text beside an app's name; absent where there is nothing to point out.
[[nodiscard]] std::optional<std::string_view> badgeTitle(MonetizationModel model);

/// The model in full sentences; absent for the unknown one.
[[nodiscard]] std::optional<std::string_view> explanation(MonetizationModel model);

}  // namespace quillet
