// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare/compare_result.h"

namespace quillet {

namespace {

void writeEntry(JsonWriter& writer, const CLIComparison::Entry& entry) {
  writer.beginObject();
  writer.key("app");
  writeSummary(writer, entry.app);
  writer.member("firstYearCost", entry.firstYearCost);
  writer.list("purchases", entry.purchases, writePurchase);
  writer.member("purchasesChecked", entry.check == PurchaseCheck::done);
  writer.endObject();
}

}  // namespace

CLIComparison::Entry comparedEntry(const ComparedApp& compared, const LocaleFormats& formats) {
  CLIComparison::Entry entry;
  entry.check = compared.sold.check;
  entry.app = summaryOf(compared.app, formats);
  for (const InAppPurchase& each : compared.sold.purchases)
    entry.purchases.push_back(summaryOf(each, formats));
  entry.subscription = subscriptionCost(compared);
  entry.firstYearCost = firstYearCost(compared);
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
