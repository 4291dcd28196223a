// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/row_extras.h"

namespace quillet {

RowExtras extrasOf(const AppPriceSeries& series, Instant now) {
  RowExtras extras;
  if (series.prices.size() < 2) return extras;
  const Instant first = series.prices.front().when.value_or(now);
  const double span = std::max(1.0, static_cast<double>((now - first).count()));
  for (const RecordedPrice& price : series.prices) {
    const auto since = static_cast<double>((price.when.value_or(first) - first).count());
    extras.line.push_back({std::clamp(since / span, 0.0, 1.0), price.amount});
  }
  return extras;
}

}  // namespace quillet
