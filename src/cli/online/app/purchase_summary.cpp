// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/purchase_summary.h"

#include "analysis/billing_period.h"
#include "analysis/purchase_cost.h"

namespace quillet {

namespace {

std::optional<std::string> priceText(const InAppPurchase& purchase, const LocaleFormats& formats) {
  if (!purchase.priceFormatted.value_or("").empty()) return purchase.priceFormatted;
  if (!purchase.price) return {};
  return formats.currency(*purchase.price, purchase.currency.value_or(""));
}

}  // namespace

CLIPurchase summaryOf(const InAppPurchase& purchase, const LocaleFormats& formats) {
  CLIPurchase result;
  result.name = purchase.name;
  result.price = purchase.price;
  result.formattedPrice = priceText(purchase, formats);
  result.currency = purchase.currency;
  result.subscription = purchase.isSubscription;
  result.period = billingText(purchase.recurringSubscriptionPeriod.value_or(""));
  result.pricePerYear = pricePerYear(purchase);
  result.perYearText = perYearText(purchase, formats);
  return result;
}

void writePurchase(JsonWriter& writer, const CLIPurchase& purchase) {
  writer.beginObject();
  writer.member("currency", purchase.currency);
  writer.member("formattedPrice", purchase.formattedPrice);
  writer.member("name", purchase.name);
  writer.member("period", purchase.period);
  writer.member("price", purchase.price);
  writer.member("pricePerYear", purchase.pricePerYear);
  writer.member("subscription", purchase.subscription);
  writer.endObject();
}

}  // namespace quillet
