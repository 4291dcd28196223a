// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "analysis/filters.h"

namespace quillet {

/// Every filter at once.
inline AppFilters everyFilter(ReleasedFilter released) {
  return {.price = PriceFilter::paid,
          .maxPrice = 4.99,
          .minRating = 4,
          .minRatingCount = 100,
          .updatedWithin = UpdatedFilter::sixMonths,
          .maxSize = SizeFilter::under2GB,
          .genre = "Graphics & \"Design\"",
          .purchases = PurchaseFilter::noInAppPurchases,
          .runsOn = OSRequirement{"14.2"},
          .architecture = ArchitectureFilter::needsRosetta,
          .released = released,
          .hideOwned = true};
}

}  // namespace quillet
