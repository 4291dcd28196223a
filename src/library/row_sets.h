// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "library/removed_rows.h"
#include "library/schema/rows.h"

namespace quillet {

// Sets of rows by key, and changes of them that are noted, for the operations in this folder.

inline constexpr std::string_view kOfApp = "WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2";
inline constexpr std::string_view kOfKey = "WHERE Z_PK = ?1";
inline constexpr std::string_view kByDate = " ORDER BY ZDATE, Z_PK";

/// The rows of these apps that are stored, in the order of the apps.
template <typename Entity>
std::vector<Entity> rowsOfApps(SQLite::Database& database, const std::vector<AppKey>& apps,
                               std::string_view order = "") {
  RowQuery<Entity> query(database, std::string(kOfApp).append(order));
  std::vector<Entity> rows;
  for (const AppKey& app : apps) {
    for (Entity& row : query.all(app.trackId, app.country)) rows.push_back(std::move(row));
  }
  return rows;
}

template <typename Entity>
std::vector<Entity> rowsOfKeys(SQLite::Database& database, const std::vector<RowId>& keys) {
  RowQuery<Entity> query(database, kOfKey);
  std::vector<Entity> rows;
  for (const RowId key : keys) {
    if (auto row = query.first(key)) rows.push_back(*std::move(row));
  }
  return rows;
}

template <typename Entity>
void deleteRows(SQLite::Database& database, const std::vector<Entity>& rows) {
  SQLite::Statement statement(database,
                              "DELETE FROM " + shapeOf<Entity>().name + " WHERE Z_PK = ?1");
  for (const Entity& row : rows) runOnce(statement, row.id);
}

inline void noteChange(LibraryChanges& changes, const WatchedApp& row) {
  changes.watchedApps.insert(keyOf(row));
}
inline void noteChange(LibraryChanges& changes, const OwnedApp& row) {
  changes.ownedApps.insert(keyOf(row));
}
inline void noteChange(LibraryChanges& changes, const AppCollection& row) {
  changes.collections.insert(row.id);
}
inline void noteChange(LibraryChanges& changes, const CollectionEntry& row) {
  if (row.collection) changes.collections.insert(*row.collection);
}
inline void noteChange(LibraryChanges& changes, const SavedSearch& row) {
  changes.savedSearches.insert(row.id);
}
inline void noteChange(LibraryChanges& changes, const AlertRecord& row) {
  changes.alerts.insert(row.id);
}

/// Adds the rows of those apps that have none, and returns the keys of these apps.
template <typename Entity>
std::vector<AppKey> addRowsOfApps(WriteTransaction& transaction, const std::vector<Entity>& rows) {
  RowInserter<Entity> inserter(transaction.database, OnConflict::skip);
  std::vector<AppKey> added;
  for (const Entity& row : rows) {
    if (!inserter.insert(row)) continue;
    noteChange(transaction.changes, row);
    added.push_back(keyOf(row));
  }
  return added;
}

/// Calls `edit(row, item)` for each item whose app (`item.app`) has a row, and stores the row.
template <typename Entity, typename Item, typename Edit>
void editRowsOfApps(WriteTransaction& transaction, const std::vector<Item>& items, Edit edit) {
  RowQuery<Entity> query(transaction.database, kOfApp);
  RowUpdater<Entity> updater(transaction.database);
  for (const Item& item : items) {
    auto row = query.first(item.app.trackId, item.app.country);
    if (!row) continue;
    edit(*row, item);
    updater.update(*row);
    noteChange(transaction.changes, *row);
  }
}

/// Removes rows, which are of the `list`.
template <typename Entity>
RemovedRows removeRows(WriteTransaction& transaction, std::vector<Entity> RemovedRows::* list,
                       std::vector<Entity> rows) {
  deleteRows(transaction.database, rows);
  for (const Entity& row : rows) noteChange(transaction.changes, row);
  RemovedRows removed;
  removed.*list = std::move(rows);
  return removed;
}

}  // namespace quillet
