// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/dates.h"
#include "library/schema/entities.h"
#include "library/write_transaction.h"

namespace quillet {

/// When an app's page was last opened.
struct AppView {
  AppKey app;
  Instant viewedAt{};

  friend bool operator==(const AppView&, const AppView&) = default;
};

/// What a removal took out of the library: whole rows with their keys, so that it can be undone.
struct RemovedRows {
  std::vector<WatchedApp> watchedApps;
  std::vector<OwnedApp> ownedApps;
  std::vector<AppCollection> collections;
  std::vector<CollectionEntry> entries;
  std::vector<SavedSearch> savedSearches;
  std::vector<AlertRecord> alerts;
  std::vector<AppView> views;

  friend bool operator==(const RemovedRows&, const RemovedRows&) = default;
};

/// Puts removed rows back under their old keys and returns how many. Left out is what has been
/// added anew since, and entries whose collection is gone.
std::size_t putBack(WriteTransaction& transaction, const RemovedRows& rows);

/// How much the user's lists hold.
struct ListCounts {
  std::int64_t watched = 0;
  std::int64_t owned = 0;
  std::int64_t collections = 0;
  std::int64_t entries = 0;
  std::int64_t savedSearches = 0;
  std::int64_t alerts = 0;
  std::int64_t viewed = 0;

  friend bool operator==(const ListCounts&, const ListCounts&) = default;
};

[[nodiscard]] ListCounts listCounts(SQLite::Database& database);

/// Empties the user's lists: watched and owned apps, collections and entries, saved searches and
/// alerts. Recorded history, the cache and import records stay.
RemovedRows removeEverything(WriteTransaction& transaction);

}  // namespace quillet
