// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/collections.h"

#include "library/row_sets.h"

namespace quillet {

std::vector<AppCollection> collections(SQLite::Database& database) {
  return selectRows<AppCollection>(database, "ORDER BY ZNAME COLLATE NOCASE");
}

std::vector<CollectionEntry> entriesOf(SQLite::Database& database, RowId collection) {
  return selectRows<CollectionEntry>(
      database, "WHERE ZCOLLECTION = ?1 ORDER BY ZADDEDAT DESC, Z_PK DESC", collection);
}

std::vector<CollectionEntry> allEntries(SQLite::Database& database) {
  return selectRows<CollectionEntry>(database, "ORDER BY ZADDEDAT DESC, Z_PK DESC");
}

std::vector<CollectionEntry> entriesOfApp(SQLite::Database& database, const AppKey& app) {
  return rowsOfApps<CollectionEntry>(database, {app});
}

RowId addCollection(WriteTransaction& transaction, const AppCollection& collection) {
  const RowId key = insertRow(transaction.database, collection);
  transaction.changes.collections.insert(key);
  return key;
}

std::optional<AppCollection> editCollection(WriteTransaction& transaction,
                                            const AppCollection& collection) {
  const auto before = selectRow<AppCollection>(transaction.database, kOfKey, collection.id);
  if (!before) return std::nullopt;
  AppCollection row = *before;
  row.name = collection.name;
  row.symbolName = collection.symbolName;
  updateRow(transaction.database, row);
  transaction.changes.collections.insert(row.id);
  return before;
}

RemovedRows removeCollections(WriteTransaction& transaction, const std::vector<RowId>& keys) {
  auto rows = rowsOfKeys<AppCollection>(transaction.database, keys);
  std::vector<CollectionEntry> entries;
  for (const AppCollection& collection : rows) {
    const auto held = entriesOf(transaction.database, collection.id);
    entries.insert(entries.end(), held.begin(), held.end());
  }
  // The entries go with their collection.
  auto removed = removeRows(transaction, &RemovedRows::collections, std::move(rows));
  removed.entries = std::move(entries);
  return removed;
}

std::vector<RowId> addEntries(WriteTransaction& transaction, RowId collection,
                              const std::vector<CollectionEntry>& entries) {
  RowInserter<CollectionEntry> inserter(transaction.database, OnConflict::skip);
  std::vector<RowId> added;
  for (CollectionEntry entry : entries) {
    entry.collection = collection;
    if (const auto key = inserter.insert(entry)) added.push_back(*key);
  }
  if (!added.empty()) transaction.changes.collections.insert(collection);
  return added;
}

std::optional<std::string> setNote(WriteTransaction& transaction, RowId entry,
                                   const std::string& note) {
  auto row = selectRow<CollectionEntry>(transaction.database, kOfKey, entry);
  if (!row) return std::nullopt;
  const std::string before = std::exchange(row->note, note);
  updateRow(transaction.database, *row);
  noteChange(transaction.changes, *row);
  return before;
}

RemovedRows removeEntries(WriteTransaction& transaction, const std::vector<RowId>& keys) {
  return removeRows(transaction, &RemovedRows::entries,
                    rowsOfKeys<CollectionEntry>(transaction.database, keys));
}

}  // namespace quillet
