// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desktop/page/figure_table.h"
#include "library/price_series.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What the app costs in one storefront.
struct ComparedStorefront {
  std::string country;
  bool isSold = false;
  std::optional<double> price = {};
  std::optional<std::string> text = {};  ///< as the store wrote it
  std::optional<std::string> currency = {};
};

struct StorefrontTerms {
  const LocaleFormats& formats;
  UtcOffsetAt zone;
  Instant now;
};

/// Those of one currency together, the cheapest first; of those that cost the same and stand the
/// same against their own lowest price there is one row. `recorded`: the prices recorded in these
/// storefronts, of as many as have any.
[[nodiscard]] std::vector<FigureRow> storefrontRows(
    const std::vector<ComparedStorefront>& storefronts, const std::vector<AppPriceSeries>& recorded,
    const StorefrontTerms& terms);

}  // namespace quillet
