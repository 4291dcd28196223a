// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/store_rows.h"

#include "analysis/app_build.h"
#include "store/records/display_price.h"

namespace quillet {

namespace {

using Texts = std::vector<std::string>;

/// The pictures' address: the largest that the record names.
std::optional<std::string> artworkOf(const ITunesApp& app) {
  if (app.artworkUrl512) return app.artworkUrl512;
  return app.artworkUrl100 ? app.artworkUrl100 : app.artworkUrl60;
}

/// What every row that a list shows says of its app.
template <typename Row>
Row listRowOf(const ITunesApp& app, const RecordSource& source) {
  Row row;
  row.trackId = app.trackId;
  row.country = source.country;
  row.platformRaw = textOf(kPlatformWords, source.platform);
  row.name = app.trackName;
  row.sellerName = app.sellerName;
  row.artworkUrl = artworkOf(app);
  row.addedAt = source.when;
  return row;
}

void describe(CachedApp& row, const ITunesApp& app) {
  row.name = app.trackName;
  row.bundleId = app.bundleId;
  row.kind = app.kind;
  row.releaseNotes = app.releaseNotes;
  row.appDescription = app.description;
  row.primaryGenreName = app.primaryGenreName;
  row.genres = app.genres.value_or(Texts());
  row.contentAdvisoryRating = app.contentAdvisoryRating;
  row.editorialBadge = app.editorialBadge;
  row.tagline = app.tagline;
}

void describeMaker(CachedApp& row, const ITunesApp& app) {
  row.sellerName = app.sellerName;
  row.artistId = app.artistId;
  row.sellerUrl = app.sellerUrl;
  row.artistViewUrl = app.artistViewUrl;
}

void describeOffer(CachedApp& row, const ITunesApp& app) {
  row.price = app.price;
  row.formattedPrice = app.formattedPrice;
  row.currency = app.currency;
  row.hasInAppPurchases = app.hasInAppPurchases;
  row.hasSubscription = app.hasSubscription;
  row.hasUnlockPurchase = app.hasUnlockPurchase;
  row.trackViewUrl = app.trackViewUrl;
}

void describeRatings(CachedApp& row, const ITunesApp& app) {
  row.rating = app.averageUserRating;
  row.ratingCount = app.userRatingCount;
  // A mean of nobody takes the place of an earlier one, which an absent one would not.
  if (row.ratingCount == 0) row.rating = 0;
  row.ratingHistogram = app.ratingHistogram;
  if (row.rating || row.ratingHistogram) row.ratingsUpdatedAt = row.updatedAt;
}

void describeBuild(CachedApp& row, const ITunesApp& app) {
  row.version = app.version;
  row.releaseDate = app.releaseDate;
  row.currentVersionReleaseDate = app.currentVersionReleaseDate;
  row.minimumOsVersion = app.minimumOsVersion;
  row.fileSizeBytes = sizeInBytes(app);
  row.needsRosetta = app.needsRosetta;
  row.languageCodes = app.languageCodesISO2A.value_or(Texts());
  row.deviceFamilies = app.deviceFamilies.value_or(Texts());
}

void describePictures(CachedApp& row, const ITunesApp& app) {
  row.artworkUrl512 = artworkOf(app);
  row.screenshotUrls = app.screenshotUrls.value_or(Texts());
  row.ipadScreenshotUrls = app.ipadScreenshotUrls.value_or(Texts());
}

// A row's list is empty where the record had none.
std::optional<Texts> listed(const Texts& texts) {
  return texts.empty() ? std::nullopt : std::optional(texts);
}

void addTexts(ITunesApp& app, const CachedApp& row) {
  app.trackName = row.name;
  app.bundleId = row.bundleId;
  app.kind = row.kind;
  app.releaseNotes = row.releaseNotes;
  app.description = row.appDescription;
  app.primaryGenreName = row.primaryGenreName;
  app.genres = listed(row.genres);
  app.contentAdvisoryRating = row.contentAdvisoryRating;
  app.editorialBadge = row.editorialBadge;
  app.tagline = row.tagline;
}

void addMaker(ITunesApp& app, const CachedApp& row) {
  app.sellerName = row.sellerName;
  app.artistId = row.artistId;
  app.sellerUrl = row.sellerUrl;
  app.artistViewUrl = row.artistViewUrl;
}

void addOffer(ITunesApp& app, const CachedApp& row) {
  app.price = row.price;
  app.formattedPrice = row.formattedPrice;
  app.currency = row.currency;
  app.hasInAppPurchases = row.hasInAppPurchases;
  app.hasSubscription = row.hasSubscription;
  app.hasUnlockPurchase = row.hasUnlockPurchase;
  app.trackViewUrl = row.trackViewUrl;
}

void addBuild(ITunesApp& app, const CachedApp& row) {
  app.version = row.version;
  app.releaseDate = row.releaseDate;
  app.currentVersionReleaseDate = row.currentVersionReleaseDate;
  app.minimumOsVersion = row.minimumOsVersion;
  if (row.fileSizeBytes) app.fileSizeBytes = std::to_string(*row.fileSizeBytes);
  app.needsRosetta = row.needsRosetta;
  app.languageCodesISO2A = listed(row.languageCodes);
  app.deviceFamilies = listed(row.deviceFamilies);
}

}  // namespace

CachedApp cachedAppOf(const DescribedApp& described, const RecordSource& source) {
  const ITunesApp& app = described.record;
  CachedApp row;
  row.trackId = app.trackId;
  row.country = source.country;
  row.updatedAt = source.when;
  describe(row, app);
  describeMaker(row, app);
  describeOffer(row, app);
  describeRatings(row, app);
  describeBuild(row, app);
  describePictures(row, app);
  return row;
}

CachedApp cachedAppOf(const ITunesApp& app, const RecordSource& source) {
  return cachedAppOf(describeApp(app), source);
}

ITunesApp recordOf(const CachedApp& row) {
  ITunesApp app;
  app.trackId = row.trackId;
  addTexts(app, row);
  addMaker(app, row);
  addOffer(app, row);
  addBuild(app, row);
  app.averageUserRating = row.rating;
  app.userRatingCount = row.ratingCount;
  app.ratingHistogram = row.ratingHistogram;
  app.artworkUrl512 = row.artworkUrl512;
  app.screenshotUrls = listed(row.screenshotUrls);
  app.ipadScreenshotUrls = listed(row.ipadScreenshotUrls);
  return app;
}

std::optional<std::string> versionOf(const ITunesApp& app, std::string_view platformRaw) {
  const Platform platform = valueOf(kPlatformWords, platformRaw).value_or(Platform::iphone);
  return describesBuild(app, platform) ? app.version : std::nullopt;
}

std::optional<std::string> priceTextOf(const ITunesApp& app) {
  if (!app.formattedPrice.value_or("").empty()) return app.formattedPrice;
  return app.price == 0 ? std::optional<std::string>(kFreeText) : std::nullopt;
}

WatchedApp watchedAppOf(const ITunesApp& app, const RecordSource& source) {
  auto row = listRowOf<WatchedApp>(app, source);
  row.trackViewUrl = app.trackViewUrl;
  row.currency = app.currency;
  row.priceWhenAdded = row.currentPrice = app.price.value_or(0);
  row.formattedPrice = priceTextOf(app);
  row.lastKnownVersion = versionOf(app, row.platformRaw);
  return row;
}

void completeImported(WatchedApp& row, const ITunesApp& app) {
  if (!row.sellerName) row.sellerName = app.sellerName;
  if (!row.artworkUrl) row.artworkUrl = artworkOf(app);
  if (!row.trackViewUrl) row.trackViewUrl = app.trackViewUrl;
}

OwnedApp ownedAppOf(const ITunesApp& app, const RecordSource& source, OwnedSource how) {
  auto row = listRowOf<OwnedApp>(app, source);
  row.bundleId = app.bundleId;
  row.trackViewUrl = app.trackViewUrl;
  row.sourceRaw = textOf(kOwnedSourceTexts, how);
  row.storeVersion = versionOf(app, row.platformRaw);
  row.priceWhenAdded = app.price;
  row.currency = app.currency;
  row.primaryGenreName = app.primaryGenreName;
  return row;
}

CollectionEntry collectionEntryOf(const ITunesApp& app, const RecordSource& source) {
  return listRowOf<CollectionEntry>(app, source);
}

}  // namespace quillet
