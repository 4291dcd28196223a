// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <variant>

namespace quillet {

struct NoPrice {
  friend bool operator==(const NoPrice&, const NoPrice&) = default;
};
struct UnreadablePrice {
  friend bool operator==(const UnreadablePrice&, const UnreadablePrice&) = default;
};
struct NegativePrice {
  friend bool operator==(const NegativePrice&, const NegativePrice&) = default;
};

/// What somebody wrote where a price is asked for.
using PriceEntry = std::variant<NoPrice, double, UnreadablePrice, NegativePrice>;

/// Reads a price with or without a currency's sign or code: "$2.99", "2,99 €", "1.299,00 kr.".
/// Point and comma both may part the fraction: where there are both, the last one does; where there
/// is one that three digits follow, `decimalPoint` does, which is the user's own, and the other
/// groups.
[[nodiscard]] PriceEntry readPrice(const QString& text, QChar decimalPoint);

}  // namespace quillet
