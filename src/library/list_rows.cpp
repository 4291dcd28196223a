// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/list_rows.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "library/collections.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

template <typename Item>
auto identityOf(const Item& item) {
  return std::tie(item.trackId, item.country);
}

constexpr auto kBefore = [](const auto& left, const auto& right) {
  return identityOf(left) < identityOf(right);
};

/// Gives each item of a list the summary of its app, if there is one.
template <typename Row, typename Item>
std::vector<Row> joined(std::vector<Item> items, std::vector<CachedSummary> summaries) {
  std::sort(summaries.begin(), summaries.end(), kBefore);
  std::vector<Row> rows;
  rows.reserve(items.size());
  for (Item& item : items) {
    const auto found = std::lower_bound(summaries.begin(), summaries.end(), item, kBefore);
    const bool isCached = found != summaries.end() && identityOf(*found) == identityOf(item);
    rows.push_back({std::move(item), isCached ? std::optional(*found) : std::nullopt});
  }
  return rows;
}

}  // namespace

std::vector<WatchedRow> watchedRows(SQLite::Database& database) {
  return joined<WatchedRow>(watchedApps(database), summariesOfWatched(database));
}

std::vector<WatchedRow> watchedRowsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return joined<WatchedRow>(watchedAppsOf(database, apps), summariesOf(database, apps));
}

std::vector<OwnedRow> ownedRows(SQLite::Database& database) {
  return joined<OwnedRow>(ownedApps(database), summariesOfOwned(database));
}

std::vector<OwnedRow> ownedRowsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return joined<OwnedRow>(ownedAppsOf(database, apps), summariesOf(database, apps));
}

std::vector<EntryRow> entryRows(SQLite::Database& database, RowId collection) {
  return joined<EntryRow>(entriesOf(database, collection),
                          summariesOfEntries(database, collection));
}

}  // namespace quillet
