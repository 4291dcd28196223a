// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <string>

#include "desktop/models/page_facts.h"
#include "system/locale_formats.h"

namespace quillet {

/// A text of the store or the user as it is shown: plain, without what would turn or hide the texts
/// around it. Line feeds become blanks.
[[nodiscard]] QString plainLine(const std::string& text);
/// Likewise with its lines, and no longer than a page bears.
[[nodiscard]] QString plainLines(const std::string& text);

/// "Free" for 0.
[[nodiscard]] QString priceText(double amount, const std::string& currency,
                                const LocaleFormats& formats);

/// What an app costs now, as far as the library knows.
struct PagePrice {
  std::optional<double> amount;
  std::string currency;  ///< ISO 4217; empty where unknown
  QString text;          ///< empty where the price is unknown
};

/// The watchlist's price comes before that of the cached record: it is the one that rows show.
[[nodiscard]] PagePrice pagePrice(const PageFacts& facts, const LocaleFormats& formats);

}  // namespace quillet
