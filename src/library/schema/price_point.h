// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// One observed app price.
struct PricePoint {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  double price = 0;  ///< in the storefront's currency
  std::optional<std::string> currency;
  Instant date{};
  bool isBackfill = false;  ///< from the published price data, not observed by this program

  friend bool operator==(const PricePoint&, const PricePoint&) = default;
};

template <>
inline constexpr auto kTable<PricePoint> = Table{
    "PricePoint", 1, KeyUse::reused,
    std::array<Index, 3>{Index{Index::Kind::plain, {"trackId", "country", "date"}}},
    std::tuple{attribute("trackId", &PricePoint::trackId),
               attribute("country", &PricePoint::country), attribute("price", &PricePoint::price),
               attribute("currency", &PricePoint::currency), attribute("date", &PricePoint::date),
               attribute("isBackfill", &PricePoint::isBackfill)}};

/// One observed price of an in-app purchase of a watched app. Rows with the same app, storefront
/// and key are one history.
struct PurchasePricePoint {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string key;  ///< what tells the purchase apart within its app, for good
  std::string name;
  std::optional<std::string> recurringPeriod;  ///< absent for a purchase made once
  double price = 0;
  std::optional<std::string> currency;
  Instant date{};

  friend bool operator==(const PurchasePricePoint&, const PurchasePricePoint&) = default;
};

template <>
inline constexpr auto kTable<PurchasePricePoint> =
    Table{"PurchasePricePoint", 2, KeyUse::reused,
          std::array<Index, 3>{Index{Index::Kind::plain, {"trackId", "country", "key", "date"}}},
          std::tuple{attribute("trackId", &PurchasePricePoint::trackId),
                     attribute("country", &PurchasePricePoint::country),
                     attribute("key", &PurchasePricePoint::key),
                     attribute("name", &PurchasePricePoint::name),
                     attribute("recurringPeriod", &PurchasePricePoint::recurringPeriod),
                     attribute("price", &PurchasePricePoint::price),
                     attribute("currency", &PurchasePricePoint::currency),
                     attribute("date", &PurchasePricePoint::date)}};

}  // namespace quillet
