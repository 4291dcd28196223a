// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "analysis/price_series.h"
#include "desktop/charts/step_chart.h"
#include "desktop/page/price_sentence.h"

namespace quillet {

/// What is drawn of one thing's prices. All have dates, in their order, and one currency; there is
/// a price.
struct PriceRecord {
  std::vector<RecordedPrice> prices;
  std::vector<CurrencySpell> others = {};  ///< when they were in another currency
  bool tellsOrigins = false;               ///< whether it is told who saw a price
};

/// "published price data" or "seen by Quillet"
[[nodiscard]] QString originText(const RecordedPrice& price);

/// When the record begins, in whatever currency.
[[nodiscard]] Instant beginOf(const PriceRecord& record);

/// As a chart from `from` until now. Nothing is drawn across currencies.
[[nodiscard]] PriceHistory priceDrawing(const PriceRecord& record, Instant from,
                                        const SentenceTerms& terms,
                                        const std::shared_ptr<const LocaleFormats>& formats);

/// When prices were in other currencies, in sentences; empty where they never were.
[[nodiscard]] QString currencySentence(const PriceRecord& record, const SentenceTerms& terms);

}  // namespace quillet
