// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_price.h"

#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

/// Whether the record was read after the watchlist's last check of the app.
bool isNewerThanCheck(const PageFacts& facts) {
  if (!facts.cached || !facts.watched) return false;
  return facts.cached->updatedAt > facts.watched->lastCheckedAt.value_or(facts.watched->addedAt);
}

}  // namespace

QString priceText(double amount, const std::string& currency, const LocaleFormats& formats) {
  return priceCell({}, amount, currency, formats).text;
}

PriceCell pagePrice(const PageFacts& facts, const LocaleFormats& formats) {
  PriceCell watched;
  if (facts.watched) watched = watchedPrice(*facts.watched, formats);
  if (!facts.cached) return watched;
  const CachedApp& cached = *facts.cached;
  PriceCell told = recordPrice(cached.formattedPrice, cached.price, cached.currency, formats);
  const bool isNewer = (cached.price || cached.formattedPrice) && isNewerThanCheck(facts);
  return watched.text.isEmpty() || isNewer ? told : watched;
}

std::vector<RecordedPrice> pricesToNow(const PageFacts& facts) {
  std::vector<RecordedPrice> prices = facts.prices.prices;
  if (prices.empty() || !isNewerThanCheck(facts) || !facts.cached->price) return prices;
  const RecordedPrice told{facts.cached->updatedAt, *facts.cached->price, facts.cached->currency};
  const RecordedPrice& last = prices.back();
  const bool isMove =
      areComparable(last.currency, told.currency) && !isSamePrice(last.amount, told.amount);
  if (isMove && last.when < told.when) prices.push_back(told);
  return prices;
}

bool isSold(const PageFacts& facts) {
  if (facts.isGone) return false;
  return !facts.watched || !facts.watched->isUnavailable || isNewerThanCheck(facts);
}

}  // namespace quillet
