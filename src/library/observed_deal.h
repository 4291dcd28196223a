// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/schema/deal.h"
#include "library/schema/price_point.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// A change of an app's price that this program saw itself.
struct ObservedChange {
  std::string country;
  double was = 0;
  double now = 0;
  std::optional<std::string> currency;  ///< of both; absent where it was never said
  Instant when{};
};

/// The deal that a fall of an app's price is. `points` are the app's recorded prices in that
/// storefront by their dates: those in its currency tell the lowest.
[[nodiscard]] Deal observedDeal(const ITunesApp& app, const ObservedChange& change,
                                const std::vector<PricePoint>& points);

}  // namespace quillet
