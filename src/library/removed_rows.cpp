// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/removed_rows.h"

#include "library/row_sets.h"

namespace quillet {
namespace {

template <typename Entity>
std::size_t insertAgain(WriteTransaction& transaction, const std::vector<Entity>& rows) {
  RowInserter<Entity> inserter(transaction.database, OnConflict::skip);
  std::size_t inserted = 0;
  for (const Entity& row : rows) {
    if (!inserter.insert(row)) continue;
    noteChange(transaction.changes, row);
    ++inserted;
  }
  return inserted;
}

std::vector<CollectionEntry> withCollection(SQLite::Database& database,
                                            const std::vector<CollectionEntry>& entries) {
  RowQuery<AppCollection> query(database, kOfKey);
  std::vector<CollectionEntry> kept;
  for (const CollectionEntry& entry : entries) {
    if (!entry.collection || query.first(*entry.collection)) kept.push_back(entry);
  }
  return kept;
}

std::size_t setViewsAgain(WriteTransaction& transaction, const std::vector<AppView>& views) {
  SQLite::Statement statement(transaction.database,
                              "UPDATE ZCACHEDAPP SET ZLASTVIEWEDAT = ?3 WHERE ZTRACKID = ?1 AND "
                              "ZCOUNTRY = ?2 AND ZLASTVIEWEDAT IS NULL");
  std::size_t set = 0;
  for (const AppView& view : views) {
    if (runOnce(statement, view.app.trackId, view.app.country, view.viewedAt) == 0) continue;
    transaction.changes.cachedApps.insert(view.app);
    ++set;
  }
  return set;
}

template <typename Entity>
std::int64_t countOf(SQLite::Database& database) {
  return database.execAndGet("SELECT count(*) FROM " + std::string(shapeOf<Entity>().name))
      .getInt64();
}

template <typename Entity>
std::vector<Entity> takeAll(WriteTransaction& transaction) {
  auto rows = selectRows<Entity>(transaction.database, "ORDER BY Z_PK");
  for (const Entity& row : rows) noteChange(transaction.changes, row);
  transaction.database.exec("DELETE FROM " + shapeOf<Entity>().name);
  return rows;
}

}  // namespace

std::size_t putBack(WriteTransaction& transaction, const RemovedRows& rows) {
  std::size_t count = insertAgain(transaction, rows.watchedApps);
  count += insertAgain(transaction, rows.ownedApps);
  count += insertAgain(transaction, rows.collections);
  count += insertAgain(transaction, withCollection(transaction.database, rows.entries));
  count += insertAgain(transaction, rows.savedSearches);
  count += insertAgain(transaction, rows.alerts);
  return count + setViewsAgain(transaction, rows.views);
}

ListCounts listCounts(SQLite::Database& database) {
  return {.watched = countOf<WatchedApp>(database),
          .owned = countOf<OwnedApp>(database),
          .collections = countOf<AppCollection>(database),
          .entries = countOf<CollectionEntry>(database),
          .savedSearches = countOf<SavedSearch>(database),
          .alerts = countOf<AlertRecord>(database),
          .viewed =
              database.execAndGet("SELECT count(*) FROM ZCACHEDAPP WHERE ZLASTVIEWEDAT IS NOT NULL")
                  .getInt64()};
}

RemovedRows removeEverything(WriteTransaction& transaction) {
  RemovedRows removed;
  removed.watchedApps = takeAll<WatchedApp>(transaction);
  removed.ownedApps = takeAll<OwnedApp>(transaction);
  removed.entries = takeAll<CollectionEntry>(transaction);
  removed.collections = takeAll<AppCollection>(transaction);
  removed.savedSearches = takeAll<SavedSearch>(transaction);
  removed.alerts = takeAll<AlertRecord>(transaction);
  return removed;
}

}  // namespace quillet
