// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/app_summary.h"

#include "store/records/display_price.h"

namespace quillet {

CLIAppSummary summaryOf(DescribedApp described, const LocaleFormats& formats) {
  ITunesApp& app = described.record;
  CLIAppSummary summary;
  summary.formattedPrice = displayPrice(app, formats);
  summary.sizeBytes = sizeInBytes(app);
  summary.trackId = app.trackId;
  summary.name = std::move(app.trackName);
  summary.seller = std::move(app.sellerName);
  summary.bundleId = std::move(app.bundleId);
  summary.kind = std::move(app.kind);
  summary.price = app.price;
  summary.currency = std::move(app.currency);
  summary.free = described.free;
  summary.rating = app.averageUserRating;
  summary.ratingCount = app.userRatingCount;
  summary.genre = std::move(app.primaryGenreName);
  summary.genres = std::move(app.genres);
  summary.releaseDate = app.releaseDate;
  summary.lastUpdated = app.currentVersionReleaseDate;
  summary.version = std::move(app.version);
  summary.minimumOS = std::move(app.minimumOsVersion);
  summary.hasInAppPurchases = app.hasInAppPurchases;
  summary.hasSubscription = app.hasSubscription;
  summary.needsRosetta = app.needsRosetta;
  summary.insideCost = std::move(app.insideCost);
  summary.storeURL = std::move(app.trackViewUrl);
  return summary;
}

CLIAppSummary summaryOf(ITunesApp app, const LocaleFormats& formats) {
  return summaryOf(describeApp(std::move(app)), formats);
}

void writeSummary(JsonWriter& writer, const CLIAppSummary& summary) {
  writer.beginObject();
  writer.member("bundleId", summary.bundleId);
  writer.member("currency", summary.currency);
  writer.member("formattedPrice", summary.formattedPrice);
  writer.member("free", summary.free);
  writer.member("genre", summary.genre);
  writer.member("genres", summary.genres);
  writer.member("hasInAppPurchases", summary.hasInAppPurchases);
  writer.member("hasSubscription", summary.hasSubscription);
  writer.member("kind", summary.kind);
  writer.member("lastUpdated", summary.lastUpdated);
  writer.member("minimumOS", summary.minimumOS);
  writer.member("name", summary.name);
  writer.member("needsRosetta", summary.needsRosetta);
  writer.member("price", summary.price);
  writer.member("rating", summary.rating);
  writer.member("ratingCount", summary.ratingCount);
  writer.member("releaseDate", summary.releaseDate);
  writer.member("seller", summary.seller);
  writer.member("sizeBytes", summary.sizeBytes);
  writer.member("storeURL", summary.storeURL);
  writer.member("trackId", summary.trackId);
  writer.member("version", summary.version);
  writer.endObject();
}

}  // namespace quillet
