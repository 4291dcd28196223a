// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "library/price_alerts.h"
#include "library/write_transaction.h"
#include "store/records/in_app_purchase.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// An amount in words, in a currency where one is known.
using PriceText = std::function<std::string(double, const std::optional<std::string>& currency)>;

/// What one storefront answered when it was asked about watched apps.
struct StorefrontCheck {
  std::string country;
  Instant when{};
  std::vector<std::int64_t> asked;
  std::vector<ITunesApp> found;
  /// Of the apps whose purchases were asked for and told.
  std::map<std::int64_t, std::vector<InAppPurchase>> purchases;
  PriceText priceText;  ///< for prices that the store does not give both texts of
};

/// Takes in what a storefront answered: the apps' prices and versions, points for prices that are
/// new, the app's deal, the cached records, an unread alert for each event, and the price that it
/// alerted. Returns the events in the order of `asked`. Apps that are watched no longer are passed
/// over.
///
/// - An app that was asked for and not found is not sold any more; its price stays.
/// - A price that the record does not tell stays as it was, and so does a currency; that of an app
///   which was added without one is its price when added.
/// - A price in another currency is taken over and compared with nothing: the price when added and
///   the target keep the currency that they are in, and the price of the last alert is forgotten.
/// - A fall is a deal; a rise, another currency and the end of the sale end one.
/// - A version counts as new when it is newer, for the store's caches answer with old ones, and
///   when the record is of the build that is watched.
/// - Several changed purchases of an app are one event without prices.
/// - A muted app raises nothing until its time has come.
std::vector<PriceAlertEvent> recordStorefrontCheck(WriteTransaction& transaction,
                                                   const StorefrontCheck& check);

}  // namespace quillet
