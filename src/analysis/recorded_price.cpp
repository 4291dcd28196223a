// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/recorded_price.h"

#include <cmath>

namespace quillet {

bool isSamePrice(double left, double right) { return std::abs(left - right) <= kPriceTolerance; }

std::optional<std::string> knownCurrency(const std::optional<std::string>& said,
                                         const std::optional<std::string>& before) {
  return said.value_or("").empty() ? before : said;
}

bool areComparable(const std::optional<std::string>& left,
                   const std::optional<std::string>& right) {
  const bool areKnown = left && right && !left->empty() && !right->empty();
  return !areKnown || *left == *right;
}

std::optional<double> changeSince(std::optional<double> now, std::optional<double> before) {
  constexpr double kSteps = 1e6;
  if (!now || !before) return {};
  return std::round((*now - *before) * kSteps) / kSteps;
}

}  // namespace quillet
