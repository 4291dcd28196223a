// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "library/schema/table.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// A watched app as it is handed on.
struct WatchedItem {
  std::int64_t trackId = 0;
  std::string country;
  std::string platform;  ///< "mac", "iphone" or "ipad"
  std::string name;
  double priceWhenAdded = 0;
  std::optional<double> targetPrice;
  bool alertOnAnyDrop = false;
  bool alertOnFree = false;
  bool alertOnNewVersion = false;
  Instant addedAt{};

  friend bool operator==(const WatchedItem&, const WatchedItem&) = default;
};

/// An app of a collection as it is handed on.
struct EntryItem {
  std::int64_t trackId = 0;
  std::string country;
  std::string platform;
  std::string name;
  std::string note;
  Instant addedAt{};

  friend bool operator==(const EntryItem&, const EntryItem&) = default;
};

struct CollectionItem {
  std::string name;
  std::string symbolName;
  std::vector<EntryItem> entries;

  friend bool operator==(const CollectionItem&, const CollectionItem&) = default;
};

/// The user's own lists, to keep elsewhere or to hand on: the watchlist and the collections,
/// without any recorded history.
struct LibraryExport {
  Instant exportedAt{};
  std::vector<WatchedItem> watchlist;
  std::vector<CollectionItem> collections;

  friend bool operator==(const LibraryExport&, const LibraryExport&) = default;
};

/// Both lists as they are at one moment, in the order in which they are listed. For a read of its
/// own: it opens a transaction, which a change has open already.
[[nodiscard]] LibraryExport exportLibrary(SQLite::Database& database, Instant now);

/// One collection alone, with an empty watchlist. Absent when it is gone.
[[nodiscard]] std::optional<LibraryExport> exportCollection(SQLite::Database& database,
                                                            RowId collection, Instant now);

}  // namespace quillet
