// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_series.h"

#include <algorithm>

namespace quillet {

namespace {

bool namesCurrency(const RecordedPrice& price) { return !price.currency.value_or("").empty(); }

/// Gives each price that names no currency the one that is known at its place.
void carryCurrencies(std::vector<RecordedPrice>& prices) {
  const auto first = std::find_if(prices.begin(), prices.end(), namesCurrency);
  std::optional<std::string> known = first == prices.end() ? std::nullopt : first->currency;
  for (RecordedPrice& price : prices) known = price.currency = knownCurrency(price.currency, known);
}

}  // namespace

std::vector<RecordedPrice> inLatestCurrency(std::vector<RecordedPrice> prices) {
  if (prices.empty()) return prices;
  carryCurrencies(prices);
  const std::optional<std::string> latest = prices.back().currency;
  std::erase_if(prices, [&](const RecordedPrice& price) { return price.currency != latest; });
  return prices;
}

std::optional<double> priceAt(const std::vector<RecordedPrice>& prices, Instant when) {
  std::optional<double> held;
  for (const RecordedPrice& price : prices) {
    if (price.when && *price.when > when) break;
    held = price.amount;
  }
  return held;
}

PriceLow lowOf(const std::vector<RecordedPrice>& prices) {
  PriceLow low{prices.front().amount, prices.front().when};
  for (const RecordedPrice& price : prices) {
    if (price.amount < low.amount || isSamePrice(price.amount, low.amount)) {
      low = {price.amount, price.when};
    }
  }
  return low;
}

PriceChanges changesOf(const std::vector<RecordedPrice>& prices) {
  PriceChanges changes;
  for (std::size_t i = 1; i < prices.size(); ++i) {
    if (isSamePrice(prices[i].amount, prices[i - 1].amount)) continue;
    ++changes.count;
    changes.last = i;
  }
  return changes;
}

}  // namespace quillet
