// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/known_apps.h"

#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/deals.h"
#include "library/owned_apps.h"
#include "library/row_sets.h"
#include "library/store_rows.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

/// What any row of a list says of its app.
template <typename Row>
void take(KnownApp& known, const Row& row) {
  if (known.record.trackName.empty()) {
    known.record.trackId = row.trackId;
    known.record.trackName = row.name;
    known.record.sellerName = row.sellerName;
    known.record.artworkUrl512 = row.artworkUrl;
  }
  if (!known.listedAs) known.listedAs = valueOf(kPlatformWords, row.platformRaw);
}

template <typename Row>
void takePage(KnownApp& known, const Row& row) {
  take(known, row);
  if (!known.record.trackViewUrl) known.record.trackViewUrl = row.trackViewUrl;
  if (!known.record.currency) known.record.currency = row.currency;
}

void takePrice(KnownApp& known, const WatchedApp& row) {
  if (!known.record.price && !lacksPrice(row)) known.record.price = row.currentPrice;
}

/// An alert names its app, and not who sells it.
void take(KnownApp& known, const AlertRecord& alert) {
  if (!known.record.trackName.empty()) return;
  known.record.trackId = alert.trackId;
  known.record.trackName = alert.appName;
  known.record.artworkUrl512 = alert.artworkUrl;
  known.listedAs = valueOf(kPlatformWords, alert.platformRaw);
}

/// A deal names its app and what that costs.
void take(KnownApp& known, const Deal& deal) {
  if (!known.record.trackName.empty() || !deal.name) return;
  known.record.trackId = deal.trackId;
  known.record.trackName = *deal.name;
  known.record.sellerName = deal.seller;
  known.record.kind = deal.kind;
  known.record.price = deal.nowPrice;
  known.record.currency = deal.currency;
}

KnownApp knownApp(SQLite::Database& database, const AppKey& app) {
  KnownApp known{.key = app};
  for (const CachedApp& kept : cachedAppsOf(database, {app})) known.record = recordOf(kept);
  for (const WatchedApp& row : watchedAppsOf(database, {app})) {
    takePage(known, row);
    takePrice(known, row);
  }
  for (const OwnedApp& row : ownedAppsOf(database, {app})) takePage(known, row);
  for (const CollectionEntry& row : entriesOfApp(database, app)) take(known, row);
  for (const AlertRecord& alert : rowsOfApps<AlertRecord>(database, {app})) take(known, alert);
  for (const Deal& deal : dealsOfApps(database, {app})) take(known, deal);
  return known;
}

}  // namespace

std::vector<KnownApp> knownApps(SQLite::Database& database, const std::vector<AppKey>& apps) {
  std::vector<KnownApp> known;
  for (const AppKey& app : apps) {
    KnownApp each = knownApp(database, app);
    if (each.record.trackId != 0) known.push_back(std::move(each));
  }
  return known;
}

}  // namespace quillet
