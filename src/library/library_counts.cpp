// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_counts.h"

#include <optional>

#include "analysis/update_state.h"
#include "library/alerts.h"
#include "library/deals.h"
#include "library/schema/rows.h"

namespace quillet {
namespace {

std::int64_t countOf(SQLite::Database& database, const char* query) {
  return database.execAndGet(query).getInt64();
}

std::optional<Instant> newestCheck(SQLite::Database& database) {
  std::optional<Instant> checked;
  readValue(database.execAndGet("SELECT max(ZLASTCHECKEDAT) FROM ZWATCHEDAPP"), checked);
  return checked;
}

/// Apps whose versions are the same text need no comparing.
std::int64_t updateCount(SQLite::Database& database) {
  SQLite::Statement rows(database,
                         "SELECT ZINSTALLEDVERSION, ZSTOREVERSION, ZSKIPPEDVERSION FROM ZOWNEDAPP "
                         "WHERE ZINSTALLEDVERSION <> ZSTOREVERSION");
  std::int64_t count = 0;
  while (rows.executeStep()) {
    std::optional<std::string> installed;
    std::optional<std::string> store;
    std::optional<std::string> skipped;
    readValue(rows.getColumn(0), installed);
    readValue(rows.getColumn(1), store);
    readValue(rows.getColumn(2), skipped);
    if (isUpdateWanted(installed, store, skipped)) ++count;
  }
  return count;
}

}  // namespace

std::vector<CollectionCount> collectionCounts(SQLite::Database& database) {
  SQLite::Statement rows(database,
                         "SELECT Z_PK, ZNAME, ZSYMBOLNAME, (SELECT count(*) FROM ZCOLLECTIONENTRY "
                         "AS E WHERE E.ZCOLLECTION = C.Z_PK) "
                         "FROM ZAPPCOLLECTION AS C ORDER BY ZNAME COLLATE NOCASE");
  std::vector<CollectionCount> counts;
  while (rows.executeStep()) {
    CollectionCount& count = counts.emplace_back();
    readValue(rows.getColumn(0), count.key);
    readValue(rows.getColumn(1), count.name);
    readValue(rows.getColumn(2), count.symbolName);
    readValue(rows.getColumn(3), count.apps);
  }
  return counts;
}

LibraryCounts libraryCounts(SQLite::Database& database, const std::string& country) {
  LibraryCounts counts;
  counts.watched = countOf(database, "SELECT count(*) FROM ZWATCHEDAPP");
  counts.unreadAlerts = unreadAlertCount(database);
  counts.owned = countOf(database, "SELECT count(*) FROM ZOWNEDAPP");
  counts.updates = updateCount(database);
  counts.viewed =
      countOf(database, "SELECT count(*) FROM ZCACHEDAPP WHERE ZLASTVIEWEDAT IS NOT NULL");
  counts.deals = dealCount(database, {.country = country, .platform = {}});
  counts.checked = newestCheck(database);
  counts.collections = collectionCounts(database);
  return counts;
}

}  // namespace quillet
