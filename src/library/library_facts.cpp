// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_facts.h"

#include "library/schema/rows.h"
#include "library/schema/table_shape.h"

namespace quillet {

namespace {

std::optional<Instant> newest(SQLite::Database& database, const char* query) {
  std::optional<Instant> time;
  readValue(database.execAndGet(query), time);
  return time;
}

}  // namespace

LibraryFacts libraryFacts(SQLite::Database& database) {
  LibraryFacts facts;
  for (const TableShape& table : allTables())
    facts.tables.push_back(
        {table.name, database.execAndGet("SELECT count(*) FROM " + table.name).getInt64()});
  facts.pricesChecked = newest(database, "SELECT max(ZLASTCHECKEDAT) FROM ZWATCHEDAPP");
  facts.chartsRecorded = newest(database, "SELECT max(ZCAPTUREDAT) FROM ZCHARTSNAPSHOT");
  return facts;
}

}  // namespace quillet
