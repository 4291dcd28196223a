// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/store_rows.h"

#include <tuple>
#include <utility>

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

/// What a row and the record that it was made from hold alike.
constexpr std::tuple kTwins{
    std::pair(&CachedApp::trackId, &ITunesApp::trackId),
    std::pair(&CachedApp::name, &ITunesApp::trackName),
    std::pair(&CachedApp::bundleId, &ITunesApp::bundleId),
    std::pair(&CachedApp::kind, &ITunesApp::kind),
    std::pair(&CachedApp::releaseNotes, &ITunesApp::releaseNotes),
    std::pair(&CachedApp::appDescription, &ITunesApp::description),
    std::pair(&CachedApp::primaryGenreName, &ITunesApp::primaryGenreName),
    std::pair(&CachedApp::genres, &ITunesApp::genres),
    std::pair(&CachedApp::contentAdvisoryRating, &ITunesApp::contentAdvisoryRating),
    std::pair(&CachedApp::editorialBadge, &ITunesApp::editorialBadge),
    std::pair(&CachedApp::tagline, &ITunesApp::tagline),
    std::pair(&CachedApp::sellerName, &ITunesApp::sellerName),
    std::pair(&CachedApp::artistId, &ITunesApp::artistId),
    std::pair(&CachedApp::sellerUrl, &ITunesApp::sellerUrl),
    std::pair(&CachedApp::artistViewUrl, &ITunesApp::artistViewUrl),
    std::pair(&CachedApp::price, &ITunesApp::price),
    std::pair(&CachedApp::formattedPrice, &ITunesApp::formattedPrice),
    std::pair(&CachedApp::currency, &ITunesApp::currency),
    std::pair(&CachedApp::hasInAppPurchases, &ITunesApp::hasInAppPurchases),
    std::pair(&CachedApp::hasSubscription, &ITunesApp::hasSubscription),
    std::pair(&CachedApp::hasUnlockPurchase, &ITunesApp::hasUnlockPurchase),
    std::pair(&CachedApp::trackViewUrl, &ITunesApp::trackViewUrl),
    std::pair(&CachedApp::rating, &ITunesApp::averageUserRating),
    std::pair(&CachedApp::ratingCount, &ITunesApp::userRatingCount),
    std::pair(&CachedApp::ratingHistogram, &ITunesApp::ratingHistogram),
    std::pair(&CachedApp::version, &ITunesApp::version),
    std::pair(&CachedApp::releaseDate, &ITunesApp::releaseDate),
    std::pair(&CachedApp::currentVersionReleaseDate, &ITunesApp::currentVersionReleaseDate),
    std::pair(&CachedApp::minimumOsVersion, &ITunesApp::minimumOsVersion),
    std::pair(&CachedApp::needsRosetta, &ITunesApp::needsRosetta),
    std::pair(&CachedApp::languageCodes, &ITunesApp::languageCodesISO2A),
    std::pair(&CachedApp::deviceFamilies, &ITunesApp::deviceFamilies),
    std::pair(&CachedApp::screenshotUrls, &ITunesApp::screenshotUrls),
    std::pair(&CachedApp::ipadScreenshotUrls, &ITunesApp::ipadScreenshotUrls)};

template <typename Value>
void copyTo(Value& to, const Value& from) {
  to = from;
}

// A row's list is empty where the record has none.
void copyTo(Texts& to, const std::optional<Texts>& from) { to = from.value_or(Texts()); }

void copyTo(std::optional<Texts>& to, const Texts& from) {
  to = from.empty() ? std::nullopt : std::optional(from);
}

/// Calls `act` with each pair of fields that hold the same.
template <typename Row, typename App, typename Act>
void eachTwin(Row& row, App& app, Act act) {
  std::apply([&](const auto&... twin) { (act(row.*(twin.first), app.*(twin.second)), ...); },
             kTwins);
}

void describeRatings(CachedApp& row) {
  // A mean of nobody takes the place of an earlier one, which an absent one would not.
  if (row.ratingCount == 0) row.rating = 0;
  if (row.rating || row.ratingHistogram) row.ratingsUpdatedAt = row.updatedAt;
}

}  // namespace

CachedApp cachedAppOf(const DescribedApp& described, const RecordSource& source) {
  const ITunesApp& app = described.record;
  CachedApp row;
  eachTwin(row, app, [](auto& to, const auto& from) { copyTo(to, from); });
  row.country = source.country;
  row.updatedAt = source.when;
  row.fileSizeBytes = sizeInBytes(app);
  row.artworkUrl512 = artworkOf(app);
  describeRatings(row);
  return row;
}

CachedApp cachedAppOf(const ITunesApp& app, const RecordSource& source) {
  return cachedAppOf(describeApp(app), source);
}

ITunesApp recordOf(const CachedApp& row) {
  ITunesApp app;
  eachTwin(row, app, [](const auto& from, auto& to) { copyTo(to, from); });
  if (row.fileSizeBytes) app.fileSizeBytes = std::to_string(*row.fileSizeBytes);
  app.artworkUrl512 = row.artworkUrl512;
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
  row.formattedPrice = app.price ? priceTextOf(app) : std::optional<std::string>(kPriceUntold);
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
