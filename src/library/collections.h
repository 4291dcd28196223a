// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/removed_rows.h"

namespace quillet {

/// By name, letter case aside.
[[nodiscard]] std::vector<AppCollection> collections(SQLite::Database& database);

/// The entries of one collection, or of all, newest first.
[[nodiscard]] std::vector<CollectionEntry> entriesOf(SQLite::Database& database, RowId collection);
[[nodiscard]] std::vector<CollectionEntry> allEntries(SQLite::Database& database);
/// Those of one app, in whatever collections.
[[nodiscard]] std::vector<CollectionEntry> entriesOfApp(SQLite::Database& database,
                                                        const AppKey& app);

RowId addCollection(WriteTransaction& transaction, const AppCollection& collection);

/// Sets the name and symbol of the collection of that key; returns it as it was, to undo that.
/// Absent when it is gone.
std::optional<AppCollection> editCollection(WriteTransaction& transaction,
                                            const AppCollection& collection);

/// Removes collections with their entries.
RemovedRows removeCollections(WriteTransaction& transaction, const std::vector<RowId>& keys);

/// Adds to a collection the apps that it does not hold yet; returns the keys of the new entries.
std::vector<RowId> addEntries(WriteTransaction& transaction, RowId collection,
                              const std::vector<CollectionEntry>& entries);

/// Returns the note as it was, to undo that; absent when the entry is gone.
std::optional<std::string> setNote(WriteTransaction& transaction, RowId entry,
                                   const std::string& note);

RemovedRows removeEntries(WriteTransaction& transaction, const std::vector<RowId>& keys);

}  // namespace quillet
