// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/page_facts.h"

#include <algorithm>
#include <ranges>

#include "base/urls.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/deals.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

/// What any record says of the app itself, and when it said so.
struct Description {
  Instant when{};
  std::string name;
  std::optional<std::string> seller;
  std::optional<std::string> artwork;
  std::optional<std::string> link;
};

template <typename Row>
std::optional<Row> firstOf(std::vector<Row> rows) {
  if (rows.empty()) return {};
  return std::move(rows.front());
}

Description descriptionOf(const CachedApp& row) {
  return {row.updatedAt, row.name, row.sellerName, row.artworkUrl512, row.trackViewUrl};
}

// Checks leave what lists say of an app as it was when it was added.
Description descriptionOf(const WatchedApp& row) {
  return {row.addedAt, row.name, row.sellerName, row.artworkUrl, row.trackViewUrl};
}

Description descriptionOf(const OwnedApp& row) {
  return {row.addedAt, row.name, row.sellerName, row.artworkUrl, row.trackViewUrl};
}

Description descriptionOf(const CollectionEntry& row) {
  return {row.addedAt, row.name, row.sellerName, row.artworkUrl, {}};
}

/// Price data tells a name, of whatever day.
Description descriptionOf(const Deal& deal) {
  return {{}, deal.name.value_or(""), deal.seller, {}, {}};
}

bool isEmpty(const std::optional<std::string>& text) { return text.value_or("").empty(); }

/// Takes each field from the newest that has it.
void describe(PageFacts& facts, std::vector<Description> descriptions) {
  std::ranges::sort(descriptions, std::ranges::greater(), &Description::when);
  for (Description& each : descriptions) {
    if (facts.name.empty()) facts.name = std::move(each.name);
    if (isEmpty(facts.seller)) facts.seller = std::move(each.seller);
    if (isEmpty(facts.artwork)) facts.artwork = std::move(each.artwork);
    if (!facts.link && each.link && isWebAddress(*each.link)) facts.link = std::move(each.link);
  }
}

std::vector<PageEntry> pageEntries(const std::vector<CollectionEntry>& entries,
                                   const std::vector<AppCollection>& collections) {
  std::vector<PageEntry> shown;
  for (const AppCollection& collection : collections) {
    const auto entry =
        std::ranges::find(entries, std::optional(collection.id), &CollectionEntry::collection);
    if (entry == entries.end()) continue;
    shown.push_back(
        {collection.id, collection.name, collection.symbolName, entry->note, entry->addedAt});
  }
  return shown;
}

/// As the library takes in a record: what it does not tell stays as it was known.
CachedApp renewed(const CachedApp& before, CachedApp record) {
  const auto keep = [&](auto... fields) {
    const auto one = [&](auto field) {
      if (!(record.*field)) record.*field = before.*field;
    };
    (one(fields), ...);
  };
  keep(&CachedApp::hasInAppPurchases, &CachedApp::hasSubscription, &CachedApp::hasUnlockPurchase,
       &CachedApp::editorialBadge, &CachedApp::tagline, &CachedApp::needsRosetta,
       &CachedApp::ratingHistogram);
  if (!record.ratingsUpdatedAt) {
    record.rating = before.rating;
    record.ratingCount = before.ratingCount;
    record.ratingsUpdatedAt = before.ratingsUpdatedAt;
  }
  if (record.deviceFamilies.empty()) record.deviceFamilies = before.deviceFamilies;
  record.id = before.id;
  record.lastViewedAt = before.lastViewedAt;
  return record;
}

void redescribe(PageFacts& facts, Description newest) {
  std::vector<Description> descriptions{std::move(newest)};
  descriptions.push_back({{}, facts.name, facts.seller, facts.artwork, facts.link});
  facts.name.clear();
  facts.seller.reset();
  facts.artwork.reset();
  facts.link.reset();
  describe(facts, std::move(descriptions));
}

std::optional<Platform> listedPlatform(const PageFacts& facts,
                                       const std::vector<CollectionEntry>& entries) {
  if (facts.watched) return valueOf(kPlatformWords, facts.watched->platformRaw);
  if (facts.owned) return valueOf(kPlatformWords, facts.owned->platformRaw);
  if (entries.empty()) return {};
  return valueOf(kPlatformWords, entries.front().platformRaw);
}

}  // namespace

void addRecord(PageFacts& facts, const CachedApp& record) {
  if (facts.cached && facts.cached->updatedAt > record.updatedAt) return;
  facts.cached = facts.cached ? renewed(*facts.cached, record) : record;
  redescribe(facts, descriptionOf(record));
}

PageFacts readPageFacts(SQLite::Database& database, const AppKey& app) {
  PageFacts facts{.app = app};
  facts.cached = firstOf(cachedAppsOf(database, {app}));
  facts.watched = firstOf(watchedAppsOf(database, {app}));
  facts.owned = firstOf(ownedAppsOf(database, {app}));
  facts.prices = firstOf(priceSeriesOf(database, {app})).value_or(AppPriceSeries{app, {}});
  facts.purchases = purchaseSeriesOf(database, app);
  const std::vector<CollectionEntry> entries = entriesOfApp(database, app);
  if (!entries.empty()) facts.entries = pageEntries(entries, collections(database));

  facts.listedAs = listedPlatform(facts, entries);

  std::vector<Description> descriptions;
  const auto add = [&](const auto& row) { descriptions.push_back(descriptionOf(row)); };
  if (facts.cached) add(*facts.cached);
  if (facts.watched) add(*facts.watched);
  if (facts.owned) add(*facts.owned);
  std::ranges::for_each(entries, add);
  std::ranges::for_each(dealsOfApps(database, {app}), add);
  describe(facts, std::move(descriptions));
  return facts;
}

}  // namespace quillet
