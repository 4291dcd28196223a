// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "analysis/price_series.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// Those of one app's prices, in the order of their dates, that held at `from` or began later; what
/// held at `from` begins there. Prices without a date are left out.
[[nodiscard]] std::vector<RecordedPrice> pricesSince(const std::vector<RecordedPrice>& prices,
                                                     Instant from);

struct SentenceTerms {
  const LocaleFormats& formats;
  UtcOffsetAt zone;
  Instant now;
  bool isSold = true;  ///< else the last price is none that anybody could pay
};

/// What the price did: "Now $4.99. Six changes in 11 months; at its lowest 3 times, usually for 5
/// days." The prices have dates in their order and one currency; empty without any.
[[nodiscard]] QString priceSentence(const std::vector<RecordedPrice>& prices,
                                    const SentenceTerms& terms);

/// What stands at the line of the lowest price: "Lowest $4.99, from 28 Oct to today", or where it
/// has risen for good "Lowest $2.99, last on 12 Nov 2024; since the last rise $6.99, 3
/// Mar". As above; there must be a price.
[[nodiscard]] QString lowText(const std::vector<RecordedPrice>& prices, const SentenceTerms& terms);

}  // namespace quillet
