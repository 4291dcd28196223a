// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/price_series.h"
#include "analysis/purchase_series.h"
#include "library/app_key.h"
#include "library/schema/price_point.h"

namespace quillet {

/// What one app has cost in the currency of its latest recorded price, by date; never empty.
struct AppPriceSeries {
  AppKey key;
  std::vector<RecordedPrice> prices;
  std::vector<CurrencySpell> others = {};  ///< what is not in it

  friend bool operator==(const AppPriceSeries&, const AppPriceSeries&) = default;
};

/// The lowest price of such a series, and how often the price changed in it.
struct AppPriceLow {
  AppKey key;
  PriceLow low;
  std::size_t changes = 0;
  std::optional<std::string> currency;

  friend bool operator==(const AppPriceLow&, const AppPriceLow&) = default;
};

struct AppPurchaseCounts {
  AppKey key;
  PurchaseCounts purchases;

  friend bool operator==(const AppPurchaseCounts&, const AppPurchaseCounts&) = default;
};

[[nodiscard]] std::vector<RecordedPrice> recordedPrices(const std::vector<PricePoint>& points);

// Of those apps that have a recorded price, in the order of the apps. A read takes long enough to
// be noticed beyond some 500 apps: ask for more of them in pieces.

[[nodiscard]] std::vector<AppPriceSeries> priceSeriesOf(SQLite::Database& database,
                                                        const std::vector<AppKey>& apps);
[[nodiscard]] std::vector<AppPriceLow> priceLowsOf(SQLite::Database& database,
                                                   const std::vector<AppKey>& apps);

/// The storefronts in which the app has a recorded price, by their codes.
[[nodiscard]] std::vector<std::string> storefrontsWithPrices(SQLite::Database& database,
                                                             std::int64_t trackId);

/// Of one app.
[[nodiscard]] std::vector<PurchaseSeries> purchaseSeriesOf(SQLite::Database& database,
                                                           const AppKey& app);

/// Of each of these apps, in their order; of one without recorded purchases both are 0.
[[nodiscard]] std::vector<AppPurchaseCounts> purchaseCountsOf(SQLite::Database& database,
                                                              const std::vector<AppKey>& apps);

}  // namespace quillet
