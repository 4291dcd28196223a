// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

#include "analysis/recorded_price.h"
#include "system/time_zone.h"

namespace quillet {

/// The lowest price of a series, and the latest time at which it was seen.
struct PriceLow {
  double amount = 0;
  std::optional<Instant> lastSeen;

  friend bool operator==(const PriceLow&, const PriceLow&) = default;
};

/// How often a price changed, and which entry of its series was the last change; 0 where none.
struct PriceChanges {
  std::size_t count = 0;
  std::size_t last = 0;
};

/// A time in which prices were in another currency than the latest one.
struct CurrencySpell {
  std::string currency;
  Instant from;
  Instant to;  ///< when the next price in another currency was seen

  friend bool operator==(const CurrencySpell&, const CurrencySpell&) = default;
};

/// Those of one app's or purchase's prices, in the order of their dates, that are in the currency
/// of the latest: a storefront may change its own, and nothing is compared across two. A price
/// without a currency has that of the one before it, else that of the first which names one; those
/// returned say so.
[[nodiscard]] std::vector<RecordedPrice> inLatestCurrency(std::vector<RecordedPrice> prices);

/// What inLatestCurrency() leaves out of such prices, all of which have a date, as times.
[[nodiscard]] std::vector<CurrencySpell> otherCurrencies(std::vector<RecordedPrice> prices);

/// Which of one currency's prices, in the order of their dates, held at `when`; absent before the
/// first.
[[nodiscard]] std::optional<double> priceAt(const std::vector<RecordedPrice>& prices, Instant when);

/// Published prices are of a day, wherever somebody is: they begin with the zone's day of that date
/// instead of UTC's. The order stays.
[[nodiscard]] std::vector<RecordedPrice> onLocalDays(std::vector<RecordedPrice> prices,
                                                     const UtcOffsetAt& zone);

/// Of prices in one currency, in the order of their dates; there must be one.
[[nodiscard]] PriceLow lowOf(const std::vector<RecordedPrice>& prices);

/// The lowest price since the last rise for good: that to a price above all of the year before it,
/// after which a month passed without the lowest price of all. Absent without such a rise. As
/// above; all prices have a date.
[[nodiscard]] std::optional<PriceLow> lowSinceLastRise(const std::vector<RecordedPrice>& prices,
                                                       Instant now);

/// Of prices in one currency, in the order of their dates.
[[nodiscard]] PriceChanges changesOf(const std::vector<RecordedPrice>& prices);

}  // namespace quillet
