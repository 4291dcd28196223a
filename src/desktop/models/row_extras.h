// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <vector>

#include "library/app_key.h"
#include "library/price_series.h"

namespace quillet {

/// A recorded price, or a place in a chart, where it stands on the line of a row.
struct SparkStep {
  double moment = 0;  ///< 0 to 1, from the first that is recorded to now
  double price = 0;

  friend bool operator==(const SparkStep&, const SparkStep&) = default;
};

/// What is read for rows that are seen, and dropped when they are scrolled away.
struct RowExtras {
  std::vector<SparkStep> line;  ///< empty for fewer than two prices
  bool isRank = false;          ///< of places: the first one on top

  friend bool operator==(const RowExtras&, const RowExtras&) = default;
};

[[nodiscard]] RowExtras extrasOf(const AppPriceSeries& series, Instant now);

}  // namespace quillet

Q_DECLARE_METATYPE(const quillet::RowExtras*)
