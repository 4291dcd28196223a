// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_price.h"

#include "desktop/models/row_parts.h"

namespace quillet {

QString priceText(double amount, const std::string& currency, const LocaleFormats& formats) {
  return priceCell({}, amount, currency, formats).text;
}

PriceCell pagePrice(const PageFacts& facts, const LocaleFormats& formats) {
  PriceCell price;
  if (facts.watched) price = watchedPrice(*facts.watched, formats);
  if (!price.text.isEmpty() || !facts.cached) return price;
  const CachedApp& cached = *facts.cached;
  return recordPrice(cached.formattedPrice, cached.price, cached.currency, formats);
}

}  // namespace quillet
