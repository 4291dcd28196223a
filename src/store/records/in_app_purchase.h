// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

namespace quillet {

/// One thing sold inside an app, in one storefront. The product identifier tells purchases apart:
/// several may share a name. Absent means that the store did not say.
struct InAppPurchase {
  std::string productId;
  std::string name;
  std::optional<std::string> description;
  bool isSubscription = false;  ///< renews by itself
  std::optional<bool> isFamilyShareable;
  std::optional<std::string> offerName;       ///< the store's identifier of the offer
  std::optional<double> price;                ///< in the storefront's currency
  std::optional<std::string> priceFormatted;  ///< the store's own text of the price
  std::optional<std::string> currency;        ///< ISO 4217
  /// ISO 8601 duration of one billing period ("P1M"), as the store wrote it; absent for what is
  /// paid once.
  std::optional<std::string> recurringSubscriptionPeriod;

  friend bool operator==(const InAppPurchase&, const InAppPurchase&) = default;
};

}  // namespace quillet
