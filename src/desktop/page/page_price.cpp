// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_price.h"

#include "base/text.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

// The store allows 4,000 characters in a description.
constexpr std::size_t kLongestText = 20'000;

}  // namespace

QString plainLines(const std::string& text) {
  return QString::fromStdString(printable(text.substr(0, kLongestText), LineFeeds::keep)).trimmed();
}

QString priceText(double amount, const std::string& currency, const LocaleFormats& formats) {
  return priceCell({}, amount, currency, formats).text;
}

PriceCell pagePrice(const PageFacts& facts, const LocaleFormats& formats) {
  PriceCell price;
  if (facts.watched) price = watchedPrice(*facts.watched, formats);
  if (!price.text.isEmpty() || !facts.cached) return price;
  const CachedApp& cached = *facts.cached;
  return priceCell(cached.formattedPrice, cached.price, cached.currency, formats);
}

}  // namespace quillet
