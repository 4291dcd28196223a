// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_series.h"

#include <algorithm>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kYear = 365 * 24h;
constexpr std::chrono::milliseconds kForGood = 30 * 24h;

bool namesCurrency(const RecordedPrice& price) { return !price.currency.value_or("").empty(); }

/// Gives each price that names no currency the one that is known at its place.
void carryCurrencies(std::vector<RecordedPrice>& prices) {
  const auto first = std::find_if(prices.begin(), prices.end(), namesCurrency);
  std::optional<std::string> known = first == prices.end() ? std::nullopt : first->currency;
  for (RecordedPrice& price : prices) known = price.currency = knownCurrency(price.currency, known);
}

/// Whether the price at `place` is higher than all that held in the year before it.
bool isRecordOfAYear(const std::vector<RecordedPrice>& prices, std::size_t place) {
  const Instant begin = *prices[place].when - kYear;
  const double price = prices[place].amount;
  for (std::size_t i = place; i-- > 0;) {
    if (prices[i].amount > price || isSamePrice(prices[i].amount, price)) return false;
    if (*prices[i].when <= begin) break;  // those before it were over by then
  }
  return place > 0;
}

}  // namespace

std::vector<RecordedPrice> inLatestCurrency(std::vector<RecordedPrice> prices) {
  if (prices.empty()) return prices;
  carryCurrencies(prices);
  const std::optional<std::string> latest = prices.back().currency;
  std::erase_if(prices, [&](const RecordedPrice& price) { return price.currency != latest; });
  return prices;
}

std::vector<CurrencySpell> otherCurrencies(std::vector<RecordedPrice> prices) {
  if (prices.empty()) return {};
  carryCurrencies(prices);
  const std::optional<std::string> latest = prices.back().currency;
  std::vector<CurrencySpell> spells;
  std::optional<std::string> before = latest;
  for (const RecordedPrice& price : prices) {
    if (price.currency == before) continue;
    if (before != latest) spells.back().to = *price.when;
    if (price.currency != latest)
      spells.push_back({price.currency.value_or(""), *price.when, *price.when});
    before = price.currency;
  }
  return spells;
}

std::optional<double> priceAt(const std::vector<RecordedPrice>& prices, Instant when) {
  std::optional<double> held;
  for (const RecordedPrice& price : prices) {
    if (price.when && *price.when > when) break;
    held = price.amount;
  }
  return held;
}

std::vector<RecordedPrice> onLocalDays(std::vector<RecordedPrice> prices, const UtcOffsetAt& zone) {
  std::optional<Instant> before;
  for (std::size_t i = 0; i < prices.size(); ++i) {
    std::optional<Instant>& when = prices[i].when;
    if (!when) continue;
    if (prices[i].isImported) {
      Instant begin = *when - zone(*when);
      begin = *when - zone(begin);  // where the clocks changed meanwhile
      // What was seen later on that day comes later still.
      if (i + 1 < prices.size()) begin = std::min(begin, prices[i + 1].when.value_or(begin));
      when = std::max(begin, before.value_or(begin));
    }
    before = when;
  }
  return prices;
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

std::optional<PriceLow> lowSinceLastRise(const std::vector<RecordedPrice>& prices, Instant now) {
  for (std::size_t i = prices.size(); i-- > 1;) {
    if (now - *prices[i].when < kForGood || !isRecordOfAYear(prices, i)) continue;
    const PriceLow since = lowOf({prices.begin() + static_cast<std::ptrdiff_t>(i), prices.end()});
    const double lowest = lowOf(prices).amount;
    if (since.amount < lowest || isSamePrice(since.amount, lowest)) return {};
    return since;
  }
  return {};
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
