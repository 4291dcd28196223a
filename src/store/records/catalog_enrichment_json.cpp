// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_enrichment_json.h"

#include "base/text.h"
#include "base/urls.h"
#include "store/records/catalog_answer.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "store/records/catalog_reviews_json.h"

namespace quillet {

namespace {

/// Releases without a readable date are left out: nothing can be judged by them, and no order kept.
std::vector<VersionEntry> readVersions(const CatalogBlock& attributes) {
  std::vector<VersionEntry> versions;
  for (const CatalogBlock& entry : attributes.list("versionHistory")) {
    auto date = entry.get<Instant>("releaseTimestamp");
    if (!date) date = entry.get<Instant>("releaseDate");
    if (!date) continue;
    versions.push_back({std::string(trimmed(entry.text("versionDisplay"))), *date,
                        entry.get<std::string>("releaseNotes")});
  }
  return versions;
}

std::optional<std::string> readBadge(const CatalogBlock& attributes) {
  if (auto text = attributes.get<std::string>("editorialBadgeInfo")) return text;
  return attributes.block("editorialBadgeInfo").get<std::string>("nameForDisplay");
}

std::optional<std::string> readTagline(const CatalogBlock& attributes) {
  const CatalogBlock notes = attributes.block("editorialNotes");
  if (auto tagline = notes.get<std::string>("tagline")) return tagline;
  return notes.get<std::string>("short");
}

std::optional<ChartPosition> readChartPosition(const CatalogBlock& attributes) {
  const CatalogBlock block = attributes.block("chartPositions").block("appStore");
  const auto position = block.get<std::int64_t>("position");
  if (!position || *position < 1) return {};
  auto url = block.get<std::string>("chartLink");
  if (url && !isWebAddress(*url)) url.reset();
  return ChartPosition{block.text("chart"), block.text("genreName"), *position, std::move(url)};
}

std::vector<std::string> readIds(const std::vector<CatalogBlock>& resources) {
  std::vector<std::string> ids;
  for (const CatalogBlock& resource : resources) {
    if (auto id = textIdOf(resource)) ids.push_back(std::move(*id));
  }
  return ids;
}

}  // namespace

AppEnrichment decodeEnrichment(const std::string& body, Platform platform) {
  const CatalogAnswer answer(body);
  if (answer.resources().empty()) return {};
  const CatalogBlock& app = answer.resources().front();
  const CatalogBlock attributes = attributesFor(app, platform);
  AppEnrichment enrichment;
  enrichment.versions = readVersions(attributes);
  enrichment.reviews = readReviews(relatedResources(app, "reviews"));
  enrichment.inAppPurchases = readPurchases(relatedResources(app, "top-in-apps"));
  enrichment.rating = readRating(attributes);
  enrichment.editorialBadge = readBadge(attributes);
  enrichment.tagline = readTagline(attributes);
  enrichment.editorialStoryIds = readIds(relatedResources(app, "related-editorial-items"));
  enrichment.platform = readPlatformInfo(attributes);
  enrichment.chartPosition = readChartPosition(attributes);
  return enrichment;
}

std::map<std::int64_t, AppEnrichment> decodeMacBuilds(const std::string& body) {
  const CatalogAnswer answer(body);
  std::map<std::int64_t, AppEnrichment> builds;
  for (const CatalogBlock& app : answer.resources()) {
    const auto id = storeIdOf(app);
    if (!id) continue;
    const CatalogBlock attributes = attributesFor(app, Platform::mac);
    AppEnrichment& build = builds[*id];
    build.versions = readVersions(attributes);
    build.platform = readPlatformInfo(attributes);
  }
  return builds;
}

}  // namespace quillet
