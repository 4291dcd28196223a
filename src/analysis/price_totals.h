// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillet {

/// An app's price and the currency that it is in; either absent where it is not known.
using KnownPrice = std::pair<std::optional<double>, std::optional<std::string>>;

struct CurrencyTotal {
  std::string currency;  ///< ISO 4217
  double amount = 0;
  std::size_t apps = 0;

  friend bool operator==(const CurrencyTotal&, const CurrencyTotal&) = default;
};

/// What apps cost together. Nothing is added across currencies.
struct PriceTotals {
  std::vector<CurrencyTotal> sums;  ///< of most apps first, then by currency
  std::size_t unknown = 0;          ///< apps whose price or currency is not known

  friend bool operator==(const PriceTotals&, const PriceTotals&) = default;
};

[[nodiscard]] PriceTotals priceTotals(const std::vector<KnownPrice>& prices);

}  // namespace quillet
