// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <string>

#include "desktop/models/app_row.h"
#include "desktop/models/page_facts.h"
#include "desktop/models/row_parts.h"
#include "system/locale_formats.h"

namespace quillet {

/// "Free" for 0.
[[nodiscard]] QString priceText(double amount, const std::string& currency,
                                const LocaleFormats& formats);

/// What an app costs now, as far as the library knows; without a text where it is unknown. The
/// watchlist's price comes before that of the cached record: it is the one that rows show.
[[nodiscard]] PriceCell pagePrice(const PageFacts& facts, const LocaleFormats& formats);

}  // namespace quillet
