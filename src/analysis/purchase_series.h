// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/recorded_price.h"

namespace quillet {

/// A price of an in-app purchase as a library keeps it.
struct RecordedPurchase {
  std::int64_t trackId = 0;
  std::string country;
  std::string key;  ///< what tells the purchase apart within its app
  std::optional<std::string> name;
  std::optional<std::string> period;  ///< ISO 8601; absent or empty for what is bought once
  RecordedPrice price;
};

/// What one in-app purchase has cost in one storefront, in the currency of its latest price: what
/// it cost in another one cannot be compared with that.
struct PurchaseSeries {
  std::int64_t trackId = 0;
  std::string country;
  std::string key;   ///< the store's product identifier, else the name, "|" and the period
  std::string name;  ///< the latest recorded one, else the key
  std::optional<std::string> period;   ///< ISO 8601; absent for what is bought once
  std::vector<RecordedPrice> history;  ///< by date; never empty

  friend bool operator==(const PurchaseSeries&, const PurchaseSeries&) = default;
};

/// How many purchases of an app have a recorded price, and of how many it changed.
struct PurchaseCounts {
  std::int64_t tracked = 0;
  std::int64_t changed = 0;

  friend bool operator==(const PurchaseCounts&, const PurchaseCounts&) = default;
};

/// Records, in the order of their dates, become series by app, storefront and key, in the order of
/// their first records.
[[nodiscard]] std::vector<PurchaseSeries> purchaseSeries(std::vector<RecordedPurchase> records);

void addTo(PurchaseCounts& counts, const PurchaseSeries& series);

}  // namespace quillet
