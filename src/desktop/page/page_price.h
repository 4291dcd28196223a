// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <string>
#include <vector>

#include "desktop/models/app_row.h"
#include "desktop/models/page_facts.h"
#include "desktop/models/row_parts.h"
#include "system/locale_formats.h"

namespace quillet {

/// "Free" for 0.
[[nodiscard]] QString priceText(double amount, const std::string& currency,
                                const LocaleFormats& formats);

/// What an app costs now, as far as anybody was told; without a text where it is unknown. Of the
/// watchlist's price and that of the record it is the newer one.
[[nodiscard]] PriceCell pagePrice(const PageFacts& facts, const LocaleFormats& formats);

/// What is recorded of the app's price, and after it what a watched app's page has read since.
[[nodiscard]] std::vector<RecordedPrice> pricesToNow(const PageFacts& facts);

/// Whether the storefront has the app, as far as anybody was told.
[[nodiscard]] bool isSold(const PageFacts& facts);

}  // namespace quillet
