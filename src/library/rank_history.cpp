// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/rank_history.h"

#include <SQLiteCpp/Statement.h>

#include "library/schema/chart_key.h"
#include "library/schema/keyed_archive.h"
#include "library/schema/reference_date.h"

namespace quillet {

std::vector<std::string> recordedChartKeys(SQLite::Database& database, const std::string& country) {
  SQLite::Statement rows(database,
                         "SELECT DISTINCT ZCHARTKEY FROM ZCHARTSNAPSHOT WHERE ZCOUNTRY = ?1 AND "
                         "ZGENREID = ?2 AND ZCHARTKEY NOT NULL ORDER BY ZCHARTKEY");
  rows.bind(1, country);
  rows.bind(2, kWholeStoreGenre);
  std::vector<std::string> keys;
  while (rows.executeStep()) keys.push_back(rows.getColumn(0).getString());
  return keys;
}

std::vector<RecordedRanking> rankingsOf(SQLite::Database& database, const std::string& chartKey) {
  SQLite::Statement rows(database,
                         "SELECT ZPLATFORMRAW, ZCHARTRAW, ZDAY, ZTRACKIDS FROM ZCHARTSNAPSHOT "
                         "WHERE ZCHARTKEY = ?1 AND ZGENREID = ?2 AND ZPLATFORMRAW NOT NULL AND "
                         "ZCHARTRAW NOT NULL AND ZDAY NOT NULL ORDER BY ZDAY");
  rows.bind(1, chartKey);
  rows.bind(2, kWholeStoreGenre);
  std::vector<RecordedRanking> rankings;
  while (rows.executeStep()) {
    auto trackIds = unarchive<std::int64_t>(rows.getColumn(3).getString());
    if (!trackIds) continue;
    rankings.push_back({rows.getColumn(0).getString(), rows.getColumn(1).getString(),
                        fromReferenceSeconds(rows.getColumn(2).getDouble()), *std::move(trackIds)});
  }
  return rankings;
}

}  // namespace quillet
