// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "base/dates.h"

namespace quillet {

/// A price of an app, or of a purchase in one, that was seen at some time.
struct RecordedPrice {
  std::optional<Instant> when;  ///< absent where the record does not say
  double amount = 0;
  std::optional<std::string> currency;  ///< ISO 4217; absent where nobody said, which says nothing
  bool isImported = false;              ///< from the published price data, not seen by this program

  friend bool operator==(const RecordedPrice&, const RecordedPrice&) = default;
};

/// Prices of one currency that are no further apart than this are the same: no currency has a
/// smaller coin that prices are set in.
inline constexpr double kPriceTolerance = 0.001;

[[nodiscard]] bool isSamePrice(double left, double right);

/// The currency that was said, else the one known before.
[[nodiscard]] std::optional<std::string> knownCurrency(const std::optional<std::string>& said,
                                                       const std::optional<std::string>& before);

/// Whether prices in these currencies may be compared. One that is absent or empty is taken for the
/// other: stores leave it out now and then, and never to say that it changed.
[[nodiscard]] bool areComparable(const std::optional<std::string>& left,
                                 const std::optional<std::string>& right);

/// By how much a price rose (negative: fell) since it was `before`, in the same currency; absent
/// unless both are known. Prices are decimal: the difference of two has no more digits than they
/// have.
[[nodiscard]] std::optional<double> changeSince(std::optional<double> now,
                                                std::optional<double> before);

}  // namespace quillet
