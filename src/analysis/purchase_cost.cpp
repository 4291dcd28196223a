// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_cost.h"

#include <cmath>

#include "analysis/billing_period.h"

namespace quillet {

namespace {

/// Twelve months of 30.44 days, 52 weeks and 365 days are all sold as a year.
constexpr double kYearlyToleranceDays = 5;

/// Absent for what is paid once.
std::optional<double> billedEveryDays(const InAppPurchase& purchase) {
  if (!purchase.isSubscription) return {};
  return periodDays(purchase.recurringSubscriptionPeriod.value_or(""));
}

}  // namespace

std::optional<double> pricePerYear(const InAppPurchase& purchase) {
  const double days = billedEveryDays(purchase).value_or(0);
  if (!purchase.price || days <= 0) return {};
  return *purchase.price * (kDaysPerYear / days);
}

std::optional<std::string> perYearText(const InAppPurchase& purchase,
                                       const LocaleFormats& formats) {
  const auto perYear = pricePerYear(purchase);
  if (!perYear) return {};
  const double days = billedEveryDays(purchase).value_or(0);
  if (std::abs(days - kDaysPerYear) < kYearlyToleranceDays) return {};
  return formats.currency(*perYear, purchase.currency.value_or("")) + "/year";
}

}  // namespace quillet
