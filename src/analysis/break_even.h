// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "store/records/in_app_purchase.h"

namespace quillet {

/// When buying an app outright becomes the cheaper way to use it.
struct BreakEven {
  InAppPurchase unlock;
  InAppPurchase subscription;  ///< the cheapest per year in the unlock's currency
  std::optional<int> months;   ///< of paying the subscription; absent: never within ten years
};

/// One for each unlock that has a subscription to compare with, in the order of the purchases.
/// Only prices above 0 in the same known currency are compared; introductory offers are not known
/// and not guessed.
[[nodiscard]] std::vector<BreakEven> breakEvens(std::span<const InAppPurchase> purchases);

/// "Lifetime License costs less than Plus (annual) after 29 months."
[[nodiscard]] std::string breakEvenSentence(const BreakEven& breakEven);

}  // namespace quillet
