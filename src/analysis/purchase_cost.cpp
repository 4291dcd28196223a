// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_cost.h"

#include <cmath>

#include "analysis/billing_period.h"
#include "analysis/purchase_kind.h"

namespace quillet {

namespace {

/// Twelve months of 30.44 days, 52 weeks and 365 days are all sold as a year.
constexpr double kYearlyToleranceDays = 5;

/// Absent for what is paid once.
std::optional<double> billedEveryDays(const InAppPurchase& purchase) {
  if (!purchase.isSubscription) return {};
  return periodDays(purchase.recurringSubscriptionPeriod.value_or(""));
}

void keepLower(std::optional<double>& lowest, std::optional<double> amount) {
  if (amount && *amount > 0 && (!lowest || *amount < *lowest)) lowest = amount;
}

/// What a plan that is billed about yearly costs in a year is its price, to the cent.
std::optional<double> shownPerYear(const InAppPurchase& purchase) {
  const double days = billedEveryDays(purchase).value_or(0);
  return std::abs(days - kDaysPerYear) < kYearlyToleranceDays ? purchase.price
                                                              : pricePerYear(purchase);
}

std::string roundedText(double amount, const InsideCost& cost, const LocaleFormats& formats) {
  constexpr double kLittle = 0.02;
  const bool isNearlyWhole = std::abs(std::round(amount) - amount) <= kLittle * amount;
  return isNearlyWhole ? formats.wholeCurrency(amount, cost.currency)
                       : formats.currency(amount, cost.currency);
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

std::optional<InsideCost> insideCost(std::span<const InAppPurchase> purchases) {
  std::optional<InsideCost> cost;
  for (const InAppPurchase& purchase : purchases) {
    const PurchaseKind kind = purchaseKind(purchase);
    const bool counts = kind == PurchaseKind::subscription || kind == PurchaseKind::unlock;
    if (!counts || !purchase.price) continue;
    const std::string currency = purchase.currency.value_or("");
    if (!cost) cost = InsideCost{{}, {}, currency};
    if (currency != cost->currency) continue;
    if (kind == PurchaseKind::subscription) {
      keepLower(cost->perYear, shownPerYear(purchase));
    } else {
      keepLower(cost->unlock, purchase.price);
    }
  }
  if (cost && !cost->perYear && !cost->unlock) cost.reset();
  return cost;
}

std::string insideCostText(const InsideCost& cost, const LocaleFormats& formats) {
  std::string text;
  if (cost.perYear) text = "sub " + roundedText(*cost.perYear, cost, formats) + "/yr";
  if (!cost.unlock) return text;
  if (!text.empty()) text += ", ";
  return text + "unlock " + roundedText(*cost.unlock, cost, formats);
}

}  // namespace quillet
