// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>

#include "store/records/in_app_purchase.h"
#include "store/records/inside_cost.h"
#include "system/locale_formats.h"

namespace quillet {

/// What a subscription costs in a year of 365.25 days, in the purchase's own currency. Absent for
/// what is paid once, without a price, and without a readable period of more than 0 days.
[[nodiscard]] std::optional<double> pricePerYear(const InAppPurchase& purchase);

/// The cost per year in words: "$59.88/year", or "59.88/year" where the currency is not known.
/// Absent where there is no cost per year, and for a subscription billed about yearly (less than 5
/// days off), whose price says it already.
[[nodiscard]] std::optional<std::string> perYearText(const InAppPurchase& purchase,
                                                     const LocaleFormats& formats);

/// The cheapest subscription and the cheapest unlock among what is sold inside an app. Amounts in
/// another currency than the first one are left out; absent where there is neither.
[[nodiscard]] std::optional<InsideCost> insideCost(std::span<const InAppPurchase> purchases);

/// "sub $40/yr, unlock $10": amounts are rounded to whole ones where that changes little.
[[nodiscard]] std::string insideCostText(const InsideCost& cost, const LocaleFormats& formats);

}  // namespace quillet
