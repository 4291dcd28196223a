// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/records/price_seed_reader.h"

namespace quillet {

/// What an app has cost over time in one storefront. What is not known is absent.
struct CLIPriceHistoryPayload {
  std::int64_t trackId = 0;
  std::optional<std::string> name;
  std::optional<std::string> seller;
  std::string country;
  std::optional<std::string> currency;
  double currentPrice = 0;
  std::optional<double> previousPrice;
  double lowestRecorded = 0;
  double highestRecorded = 0;
  std::optional<Instant> lastChange;
  std::optional<double> lastChangePercent;  ///< negative for a drop
  Instant recordedFrom;
  std::optional<Instant> generatedAt;
  std::optional<Instant> goneSince;      ///< absent while it is sold
  std::optional<Instant> lookedAt;       ///< when the store last told the prices
  std::string oldLook;                   ///< that it is long ago; empty where not; not in JSON
  std::vector<PriceSeed::Point> points;  ///< in the order of the days
};

/// Reads on to the app; absent where the file does not have it.
[[nodiscard]] std::optional<CLIPriceHistoryPayload> findPriceHistory(PriceSeedReader& reader,
                                                                     std::int64_t trackId,
                                                                     std::string country);

[[nodiscard]] std::string renderPriceHistoryJson(const CLIPriceHistoryPayload& payload);

}  // namespace quillet
