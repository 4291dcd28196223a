// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/price_totals.h"

#include <algorithm>

namespace quillet {

namespace {

CurrencyTotal& totalIn(std::vector<CurrencyTotal>& sums, const std::string& currency) {
  const auto found = std::find_if(sums.begin(), sums.end(),
                                  [&](const auto& total) { return total.currency == currency; });
  return found != sums.end() ? *found : sums.emplace_back(CurrencyTotal{currency});
}

}  // namespace

PriceTotals priceTotals(const std::vector<KnownPrice>& prices) {
  PriceTotals totals;
  for (const auto& [price, currency] : prices) {
    if (!price || currency.value_or("").empty()) {
      ++totals.unknown;
      continue;
    }
    CurrencyTotal& total = totalIn(totals.sums, *currency);
    total.amount += *price;
    ++total.apps;
  }
  std::sort(totals.sums.begin(), totals.sums.end(), [](const auto& left, const auto& right) {
    return left.apps != right.apps ? left.apps > right.apps : left.currency < right.currency;
  });
  return totals;
}

}  // namespace quillet
