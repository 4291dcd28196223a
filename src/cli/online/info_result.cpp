// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/info_result.h"

#include <algorithm>

#include "analysis/catalog_facts.h"
#include "cli/online/app_lookup.h"

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
void forgetBuild(AppEnrichment& enrichment) {
  enrichment.versions.clear();
  enrichment.rating.reset();
  enrichment.chartPosition.reset();
  if (!enrichment.platform) return;
  PlatformInfo families;
  families.deviceFamilies = std::move(enrichment.platform->deviceFamilies);
  enrichment.platform = std::move(families);
}

void addPlatformInfo(ITunesApp& app, Platform platform, const PlatformInfo& info) {
  if (!info.deviceFamilies.empty()) app.deviceFamilies = info.deviceFamilies;
  if (platform != Platform::mac) return;
  app.needsRosetta = needsRosetta(info);
  if (!app.minimumOsVersion) app.minimumOsVersion = info.minimumMacOSVersion;
}

std::optional<std::string> architectureOf(const PlatformInfo& info) {
  if (info.requiresRosetta == true) return "Intel (needs Rosetta)";
  if (info.runsOnAppleSilicon == true) {
    return info.runsOnIntel == true ? "Apple silicon and Intel" : "Apple silicon";
  }
  if (info.runsOnIntel == true) return "Intel";
  return {};
}

void addCatalogRating(CLIAppDetail& detail, const AppRating& rating) {
  if (!rating.histogram.empty()) detail.ratingHistogram = rating.histogram;
  if (detail.app.ratingCount) return;
  if (rating.count != 0) detail.app.rating = rating.value;
  detail.app.ratingCount = rating.count;
}

void addLists(CLIAppDetail& detail, const AppEnrichment& enrichment, const LocaleFormats& formats) {
  auto& purchases = detail.inAppPurchases.emplace();
  for (const InAppPurchase& p : enrichment.inAppPurchases) {
    purchases.push_back(summaryOf(p, formats));
  }
  detail.recentVersions = enrichment.versions;
}

void writeChart(JsonWriter& writer, const ChartPosition& chart) {
  writer.beginObject();
  writer.memberUnlessEmpty("chart", chart.chart);
  writer.member("chartURL", chart.chartURL);
  writer.memberUnlessEmpty("genreName", chart.genreName);
  writer.member("position", chart.position);
  writer.endObject();
}

template <typename Item>
void writeList(JsonWriter& writer, std::string_view name,
               const std::optional<std::vector<Item>>& items,
               void (*writeItem)(JsonWriter&, const Item&)) {
  if (items) writer.list(name, *items, writeItem);
}

}  // namespace

CLIAppDetail detailOf(ITunesApp app, Platform platform, std::string country,
                      AppEnrichment enrichment, const LocaleFormats& formats) {
  // An app that the catalog does not have is not one that sells nothing.
  const bool known = enrichment != AppEnrichment{};
  if (!describesBuild(app, platform)) {
    if (!knowsBuild(enrichment, platform)) forgetBuild(enrichment);
    describeOtherBuild(app, enrichment.versions);
  }
  const PlatformInfo info = enrichment.platform.value_or(PlatformInfo{});
  addPlatformInfo(app, platform, info);
  if (known) setPurchaseFlags(app, enrichment.inAppPurchases);

  CLIAppDetail detail;
  detail.app = summaryOf(app, formats);
  detail.country = std::move(country);
  detail.platform = platform;
  detail.description = app.description;
  detail.releaseNotes = app.releaseNotes;
  if (platform == Platform::mac) detail.architecture = architectureOf(info);
  detail.requirements = info.requirements;
  detail.deviceFamilies = app.deviceFamilies;
  detail.editorialBadge = enrichment.editorialBadge;
  detail.tagline = enrichment.tagline;
  detail.chartPosition = enrichment.chartPosition;
  if (enrichment.rating) addCatalogRating(detail, *enrichment.rating);
  if (known) addLists(detail, enrichment, formats);
  // Without a price and without purchases there is nothing to conclude from.
  if (app.price || app.hasInAppPurchases == true) detail.monetization = monetizationModel(app);
  return detail;
}

std::string renderInfoJson(const CLIAppDetail& detail) {
  return jsonObject([&](JsonWriter& writer) {
    writer.key("app");
    writeSummary(writer, detail.app);
    writer.member("architecture", detail.architecture);
    if (detail.chartPosition) {
      writer.key("chartPosition");
      writeChart(writer, *detail.chartPosition);
    }
    writer.member("country", detail.country);
    writer.member("description", detail.description);
    writer.member("deviceFamilies", detail.deviceFamilies);
    writer.member("editorialBadge", detail.editorialBadge);
    writeList(writer, "inAppPurchases", detail.inAppPurchases, writePurchase);
    writer.member("platform", textOf(kPlatformWords, detail.platform));
    writer.member("ratingHistogram", detail.ratingHistogram);
    writeList(writer, "recentVersions", detail.recentVersions, writeVersion);
    writer.member("releaseNotes", detail.releaseNotes);
    writer.member("requirements", detail.requirements);
    writer.member("tagline", detail.tagline);
  });
}

}  // namespace quillet
