// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare_result.h"

#include <algorithm>

#include "analysis/monetization.h"

namespace quillet {

namespace {

/// The price and the cheapest subscription's cost in a year; absent where either is not known.
std::optional<double> firstYearCostOf(const CLIComparison::Entry& entry) {
  if (entry.check != PurchaseCheck::done || !entry.app.price) return {};
  std::optional<double> cheapest;
  for (const CLIPurchase& purchase : entry.purchases) {
    if (!purchase.pricePerYear) continue;
    cheapest = std::min(cheapest.value_or(*purchase.pricePerYear), *purchase.pricePerYear);
  }
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
  JsonWriter writer;
  writer.beginObject();
  writer.member("country", comparison.country);
  writer.list("entries", comparison.entries, writeEntry);
  writer.member("missing", comparison.missing);
  writer.endObject();
  return writer.take();
}

}  // namespace quillet
