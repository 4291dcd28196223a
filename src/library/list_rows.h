// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "library/cached_summary.h"
#include "library/schema/entities.h"

namespace quillet {

// The rows of the user's lists, each with what the cache knows of its app.

struct WatchedRow {
  WatchedApp app;
  std::optional<CachedSummary> cached;

  friend bool operator==(const WatchedRow&, const WatchedRow&) = default;
};

struct OwnedRow {
  OwnedApp app;
  std::optional<CachedSummary> cached;

  friend bool operator==(const OwnedRow&, const OwnedRow&) = default;
};

struct EntryRow {
  CollectionEntry entry;
  std::optional<CachedSummary> cached;

  friend bool operator==(const EntryRow&, const EntryRow&) = default;
};

/// Newest first.
[[nodiscard]] std::vector<WatchedRow> watchedRows(SQLite::Database& database);
/// Those of these apps that are watched, in the order of the apps.
[[nodiscard]] std::vector<WatchedRow> watchedRowsOf(SQLite::Database& database,
                                                    const std::vector<AppKey>& apps);

/// By name, letter case aside.
[[nodiscard]] std::vector<OwnedRow> ownedRows(SQLite::Database& database);
/// Those of these apps that are owned, in the order of the apps.
[[nodiscard]] std::vector<OwnedRow> ownedRowsOf(SQLite::Database& database,
                                                const std::vector<AppKey>& apps);

/// The entries of one collection, newest first.
[[nodiscard]] std::vector<EntryRow> entryRows(SQLite::Database& database, RowId collection);

}  // namespace quillet
