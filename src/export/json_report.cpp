// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/json_report.h"

#include "base/json_writer.h"

namespace quillet {

namespace {

void writeMaintenance(JsonWriter& writer, const MaintenanceHealth& health) {
  writer.beginObject();
  writer.member("status", textOf(kMaintenanceWords, health.level));
  writer.member("summary", maintenanceSummary(health));
  writer.member("updatesLastYear", health.updatesLastYear);
  writer.member("monthsSinceUpdate", health.monthsSinceUpdate);
  writer.endObject();
}

void writePurchase(JsonWriter& writer, const ReportPurchase& purchase) {
  writer.beginObject();
  writer.member("name", purchase.name);
  writer.member("price", purchase.price);
  writer.member("isSubscription", purchase.isSubscription);
  writer.member("billing", purchase.billing);
  writer.member("pricePerYear", purchase.pricePerYear);
  writer.endObject();
}

void writeVersion(JsonWriter& writer, const VersionEntry& entry) {
  writer.beginObject();
  writer.memberUnlessEmpty("version", entry.version);
  writer.member("releaseDate", entry.releaseDate);
  writer.member("releaseNotes", entry.releaseNotes);
  writer.endObject();
}

void writeReview(JsonWriter& writer, const AppReview& review) {
  writer.beginObject();
  writer.memberUnlessEmpty("title", review.title);
  writer.memberUnlessEmpty("author", review.userName);
  writer.memberUnlessEmpty("review", review.body);
  writer.member("date", review.date);
  writer.member("developerResponse", review.developerResponse);
  writer.member("developerResponseDate", review.developerResponseDate);
  writer.member("rating", review.rating);
  writer.endObject();
}

void writePrice(JsonWriter& writer, const ReportPrice& price) {
  writer.beginObject();
  writer.member("date", price.recorded.when);
  writer.member("price", price.recorded.amount);
  writer.member("currency", price.recorded.currency);
  writer.endObject();
}

/// What the report says of the app in single values. Scripts read the keys; never change.
void writeFacts(JsonWriter& writer, const AppReport& report) {
  writer.member("exported", report.exported);
  writer.member("storefront", report.storefront);
  writer.member("trackId", report.trackId);
  writer.member("name", report.name);
  writer.member("developer", report.developer);
  writer.member("bundleId", report.bundleId);
  writer.member("price", report.price);
  writer.member("formattedPrice", report.formattedPrice);
  writer.member("currency", report.currency);
  writer.member("rating", report.rating);
  writer.member("ratingCount", report.ratingCount);
  writer.member("ratingHistogram", report.ratingHistogram);
  writer.member("genre", report.genre);
  writer.member("version", report.version);
  writer.member("releaseDate", report.releaseDate);
  writer.member("lastUpdated", report.lastUpdated);
  writer.member("sizeBytes", report.sizeBytes);
  writer.member("contentRating", report.contentRating);
  writer.key("maintenance");
  writeMaintenance(writer, report.maintenance);
  writer.member("hasSubscription", report.hasSubscription);
  writer.member("storeURL", report.storeURL);
}

}  // namespace

std::string jsonReport(const AppReport& report) {
  JsonWriter writer(KeyOrder::asWritten);
  writer.beginObject();
  writeFacts(writer, report);
  if (report.inAppPurchases) writer.list("inAppPurchases", *report.inAppPurchases, writePurchase);
  if (report.versionHistory) writer.list("versionHistory", *report.versionHistory, writeVersion);
  if (report.reviews) writer.list("reviews", *report.reviews, writeReview);
  if (report.priceHistory) writer.list("priceHistory", *report.priceHistory, writePrice);
  writer.member("description", report.description);
  writer.endObject();
  return writer.take() + '\n';
}

}  // namespace quillet
