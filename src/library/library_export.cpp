// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_export.h"

#include <SQLiteCpp/Transaction.h>

#include <unordered_map>

#include "library/collections.h"
#include "library/row_sets.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

/// An item names no currency: its prices are those in the app's present one. Where the price when
/// it was added is not, what it costs now is what there is to begin from.
WatchedItem itemOf(const WatchedApp& app) {
  return {app.trackId,
          app.country,
          app.platformRaw,
          app.name,
          knownPriceWhenAdded(app).value_or(app.currentPrice),
          knownTargetPrice(app),
          app.alertOnAnyDrop,
          app.alertOnFree,
          app.alertOnNewVersion,
          app.addedAt};
}

EntryItem itemOf(const CollectionEntry& entry) {
  return {entry.trackId, entry.country, entry.platformRaw, entry.name, entry.note, entry.addedAt};
}

CollectionItem itemOf(const AppCollection& collection) {
  return {collection.name, collection.symbolName, {}};
}

std::vector<CollectionItem> collectionItems(SQLite::Database& database) {
  std::vector<CollectionItem> items;
  std::unordered_map<RowId, std::size_t> places;
  for (const AppCollection& collection : collections(database)) {
    places.emplace(collection.id, items.size());
    items.push_back(itemOf(collection));
  }
  for (const CollectionEntry& entry : allEntries(database)) {
    const auto place = places.find(entry.collection.value_or(0));
    if (place != places.end()) items[place->second].entries.push_back(itemOf(entry));
  }
  return items;
}

}  // namespace

LibraryExport exportLibrary(SQLite::Database& database, Instant now) {
  // One moment for all the queries, even while another program repairs the library.
  const SQLite::Transaction moment(database);
  LibraryExport document{now, {}, collectionItems(database)};
  for (const WatchedApp& app : watchedApps(database)) document.watchlist.push_back(itemOf(app));
  return document;
}

std::optional<LibraryExport> exportCollection(SQLite::Database& database, RowId collection,
                                              Instant now) {
  const SQLite::Transaction moment(database);
  const auto row = selectRow<AppCollection>(database, kOfKey, collection);
  if (!row) return std::nullopt;
  CollectionItem item = itemOf(*row);
  for (const CollectionEntry& entry : entriesOf(database, collection))
    item.entries.push_back(itemOf(entry));
  return LibraryExport{now, {}, {std::move(item)}};
}

}  // namespace quillet
