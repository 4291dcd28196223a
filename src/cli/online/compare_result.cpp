// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare_result.h"

#include <algorithm>

#include "analysis/monetization.h"

namespace quillet {

namespace {

/// The price and the cheapest subscription's cost in a year; absent where either is not known.
/// What is sold in another currency than the app cannot be added to its price.
std::optional<double> firstYearCostOf(const CLIComparison::Entry& entry) {
  if (entry.check != PurchaseCheck::done || !entry.app.price) return {};
  const std::string currency = entry.app.currency.value_or("");
  std::optional<double> cheapest;
  bool sellsSubscriptions = false;
  for (const CLIPurchase& purchase : entry.purchases) {
    if (!purchase.subscription) continue;
    sellsSubscriptions = true;
    if (!purchase.pricePerYear || purchase.currency.value_or(currency) != currency) continue;
    cheapest = std::min(cheapest.value_or(*purchase.pricePerYear), *purchase.pricePerYear);
  }
  if (sellsSubscriptions && !cheapest) return {};
  return *entry.app.price + cheapest.value_or(0);
}

void writeEntry(JsonWriter& writer, const CLIComparison::Entry& entry) {
  writer.beginObject();
  writer.key("app");
  writeSummary(writer, entry.app);
  writer.list("purchases", entry.purchases, writePurchase);
  writer.member("purchasesChecked", entry.check == PurchaseCheck::done);
  writer.endObject();
}

}  // namespace

CLIComparison::Entry comparedEntry(ITunesApp app, const SoldInside& sold,
                                   const LocaleFormats& formats) {
  CLIComparison::Entry entry;
  entry.check = sold.check;
  if (sold.check == PurchaseCheck::done) setPurchaseFlags(app, sold.purchases);
  entry.app = summaryOf(app, formats);
  for (const InAppPurchase& each : sold.purchases) {
    entry.purchases.push_back(summaryOf(each, formats));
  }
  entry.firstYearCost = firstYearCostOf(entry);
  return entry;
}

std::string renderComparisonJson(const CLIComparison& comparison) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("country", comparison.country);
    writer.list("entries", comparison.entries, writeEntry);
    writer.member("missing", comparison.missing);
  });
}

}  // namespace quillet
