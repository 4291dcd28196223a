// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/dates.h"
#include "cli/local/local_store.h"

namespace quillet {

struct RecordedPrice {
  std::optional<Instant> date;
  double price = 0;
};

/// The recorded prices of one in-app purchase in one storefront.
struct PurchaseSeries {
  std::int64_t trackId = 0;
  std::string country;
  std::string key;   ///< the store's product identifier, else the name, "|" and the period
  std::string name;  ///< the latest recorded one, else the key
  std::optional<std::string> period;    ///< ISO 8601; absent for what is bought once
  std::optional<std::string> currency;  ///< of the latest price
  std::vector<RecordedPrice> history;   ///< by date; never empty
};

/// How often a price changed, and which entry of the history was the last change; 0 where none.
struct PriceChanges {
  std::size_t count = 0;
  std::size_t last = 0;
};

[[nodiscard]] PriceChanges changesOf(const PurchaseSeries& series);

/// The purchases of these apps, in the order of their first records. Absent where the database is
/// from a time before purchases were recorded.
[[nodiscard]] std::optional<std::vector<PurchaseSeries>> readPurchaseSeries(
    const CLILocalStore& store, std::span<const std::int64_t> trackIds);

}  // namespace quillet
