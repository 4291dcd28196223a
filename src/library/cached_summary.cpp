// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/cached_summary.h"

#include "library/row_sets.h"

namespace quillet {

std::vector<CachedSummary> summariesOf(SQLite::Database& database,
                                       const std::vector<AppKey>& apps) {
  return rowsOfApps<CachedSummary>(database, apps);
}

std::vector<CachedSummary> summariesOfWatched(SQLite::Database& database) {
  return selectRows<CachedSummary>(
      database, "WHERE (ZTRACKID, ZCOUNTRY) IN (SELECT ZTRACKID, ZCOUNTRY FROM ZWATCHEDAPP)");
}

std::vector<CachedSummary> summariesOfOwned(SQLite::Database& database) {
  return selectRows<CachedSummary>(
      database, "WHERE (ZTRACKID, ZCOUNTRY) IN (SELECT ZTRACKID, ZCOUNTRY FROM ZOWNEDAPP)");
}

std::vector<CachedSummary> summariesOfEntries(SQLite::Database& database, RowId collection) {
  return selectRows<CachedSummary>(database,
                                   "WHERE (ZTRACKID, ZCOUNTRY) IN (SELECT ZTRACKID, ZCOUNTRY "
                                   "FROM ZCOLLECTIONENTRY WHERE ZCOLLECTION = ?1)",
                                   collection);
}

}  // namespace quillet
