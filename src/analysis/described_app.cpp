// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/described_app.h"

#include <utility>

#include "analysis/app_build.h"
#include "analysis/catalog_facts.h"

namespace quillet {

namespace {

/// Takes away what a record says of its own build when another one is described; the newest
/// release of that one stands in where it is known.
void describeOtherBuild(ITunesApp& app, const std::vector<VersionEntry>& versions) {
  app.version.reset();
  app.releaseDate.reset();
  app.currentVersionReleaseDate.reset();
  app.releaseNotes.reset();
  app.minimumOsVersion.reset();
  app.fileSizeBytes.reset();
  app.averageUserRating.reset();
  app.userRatingCount.reset();
  if (versions.empty()) return;
  const VersionEntry& newest = versions.front();
  if (!newest.version.empty()) app.version = newest.version;
  app.currentVersionReleaseDate = newest.releaseDate;
  app.releaseNotes = newest.releaseNotes;
}

/// Leaves what belongs to the app as a whole.
void forgetBuild(AppEnrichment& catalog) {
  catalog.versions.clear();
  catalog.rating.reset();
  catalog.chartPosition.reset();
  if (!catalog.platform) return;
  PlatformInfo families;
  families.deviceFamilies = std::move(catalog.platform->deviceFamilies);
  catalog.platform = std::move(families);
}

void addBuild(ITunesApp& app, Platform platform, const PlatformInfo& build) {
  if (!build.deviceFamilies.empty()) app.deviceFamilies = build.deviceFamilies;
  if (platform != Platform::mac) return;
  if (const auto rosetta = needsRosetta(build)) app.needsRosetta = rosetta;
  if (!app.minimumOsVersion) app.minimumOsVersion = build.minimumMacOSVersion;
}

/// The services have 0 stars for what nobody rated, and for ratings that they do not know.
void settleRating(ITunesApp& app, const std::optional<AppRating>& catalog) {
  if (hasUnknownRating(app)) {
    app.averageUserRating.reset();
    app.userRatingCount.reset();
  }
  if (catalog) setRating(app, *catalog);
  if (app.userRatingCount == 0) app.averageUserRating.reset();
}

void addTexts(ITunesApp& app, AppEnrichment& catalog) {
  if (catalog.editorialBadge) app.editorialBadge = std::move(catalog.editorialBadge);
  if (catalog.tagline) app.tagline = std::move(catalog.tagline);
}

std::optional<bool> isFree(const ITunesApp& app) {
  if (app.price) return *app.price == 0;
  if (app.formattedPrice.value_or("").empty()) return true;
  return {};
}

void join(DescribedApp& described, AppEnrichment catalog) {
  ITunesApp& app = described.record;
  // An app that the catalog does not have is not one that sells nothing.
  const bool isKnown = catalog != AppEnrichment{};
  if (!describesBuild(app, described.platform)) {
    if (!knowsBuild(catalog, described.platform)) forgetBuild(catalog);
    describeOtherBuild(app, catalog.versions);
  }
  described.build = std::move(catalog.platform).value_or(PlatformInfo{});
  described.chartPosition = std::move(catalog.chartPosition);
  addBuild(app, described.platform, described.build);
  settleRating(app, catalog.rating);
  addTexts(app, catalog);
  if (!isKnown) return;
  setPurchaseFlags(app, catalog.inAppPurchases);
  described.purchases = std::move(catalog.inAppPurchases);
  described.versions = std::move(catalog.versions);
}

}  // namespace

DescribedApp describeApp(ITunesApp record, Platform platform,
                         std::optional<AppEnrichment> catalog) {
  DescribedApp described{.record = std::move(record), .platform = platform};
  described.isCatalogRead = catalog.has_value();
  join(described, std::move(catalog).value_or(AppEnrichment{}));
  described.free = isFree(described.record);
  // Without a price and without purchases there is nothing to conclude from.
  if (described.free || described.record.hasInAppPurchases == true) {
    described.monetization = monetizationModel(described.record);
  }
  return described;
}

DescribedApp describeApp(ITunesApp record) {
  const Platform platform = ownPlatform(record);
  return describeApp(std::move(record), platform, std::nullopt);
}

}  // namespace quillet
