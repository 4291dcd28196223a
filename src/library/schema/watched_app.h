// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// One app on the watchlist, for one storefront.
struct WatchedApp {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;      ///< the storefront that the price is read in
  std::string platformRaw;  ///< "mac", "iphone" or "ipad"
  std::string name;
  std::optional<std::string> sellerName;
  std::optional<std::string> artworkUrl;
  std::optional<std::string> trackViewUrl;
  std::optional<std::string> currency;  ///< ISO 4217
  double priceWhenAdded = 0;
  double currentPrice = 0;  ///< at the last successful check
  std::optional<std::string> formattedPrice;
  std::optional<std::string> lastKnownVersion;
  Instant addedAt{};
  std::optional<Instant> lastCheckedAt;
  bool alertOnAnyDrop = false;
  bool alertOnFree = false;
  bool alertOnNewVersion = false;
  bool alertOnPurchasePrices = false;
  std::optional<double> targetPrice;        ///< alert when the price falls to it or below
  std::optional<double> lastNotifiedPrice;  ///< the price of the last alert
  bool isUnavailable = false;               ///< no longer sold at the last check
  std::optional<Instant> mutedUntil;        ///< no alerts before this
  // Where the storefront changed its currency since. Absent: `currency`.
  std::optional<std::string> addedCurrency;   ///< of `priceWhenAdded`
  std::optional<std::string> targetCurrency;  ///< of `targetPrice`

  friend bool operator==(const WatchedApp&, const WatchedApp&) = default;
};

template <>
inline constexpr auto kTable<WatchedApp> =
    Table{"WatchedApp", 1, KeyUse::unique,
          std::array<Index, 3>{Index{Index::Kind::unique, {"trackId", "country"}},
                               Index{Index::Kind::plain, {"addedAt"}}},
          std::tuple{attribute("trackId", &WatchedApp::trackId),
                     attribute("country", &WatchedApp::country),
                     attribute("platformRaw", &WatchedApp::platformRaw),
                     attribute("name", &WatchedApp::name),
                     attribute("sellerName", &WatchedApp::sellerName),
                     attribute("artworkUrl", &WatchedApp::artworkUrl),
                     attribute("trackViewUrl", &WatchedApp::trackViewUrl),
                     attribute("currency", &WatchedApp::currency),
                     attribute("priceWhenAdded", &WatchedApp::priceWhenAdded),
                     attribute("currentPrice", &WatchedApp::currentPrice),
                     attribute("formattedPrice", &WatchedApp::formattedPrice),
                     attribute("lastKnownVersion", &WatchedApp::lastKnownVersion),
                     attribute("addedAt", &WatchedApp::addedAt),
                     attribute("lastCheckedAt", &WatchedApp::lastCheckedAt),
                     attribute("alertOnAnyDrop", &WatchedApp::alertOnAnyDrop),
                     attribute("alertOnFree", &WatchedApp::alertOnFree),
                     attribute("alertOnNewVersion", &WatchedApp::alertOnNewVersion),
                     attribute("alertOnPurchasePrices", &WatchedApp::alertOnPurchasePrices),
                     attribute("targetPrice", &WatchedApp::targetPrice),
                     attribute("lastNotifiedPrice", &WatchedApp::lastNotifiedPrice),
                     attribute("isUnavailable", &WatchedApp::isUnavailable),
                     attribute("mutedUntil", &WatchedApp::mutedUntil, 3),
                     attribute("addedCurrency", &WatchedApp::addedCurrency, 5),
                     attribute("targetCurrency", &WatchedApp::targetCurrency, 5)}};

}  // namespace quillet
