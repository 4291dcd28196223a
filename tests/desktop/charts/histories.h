// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <utility>

#include "desktop/charts/step_chart.h"

namespace quillet {

inline Instant day(const char* text) {
  return *parseInternetDate(std::string(text) + "T00:00:00Z");
}

inline QString inDollars(double price) {
  return price == 0 ? QStringLiteral("$0") : u'$' + QString::number(price, 'f', 2);
}

/// A year that ends on 20 November 2026.
inline PriceHistory historyOf(std::initializer_list<std::pair<const char*, double>> steps) {
  PriceHistory history{{}, day("2025-11-20"), day("2026-11-20"), {}, {}, inDollars};
  for (const auto& [since, price] : steps) history.steps.push_back({day(since), price});
  return history;
}

}  // namespace quillet
