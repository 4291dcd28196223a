// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/revisions.h"

#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include <string>

#include "base/errors.h"
#include "library/schema/table_sql.h"

namespace quillet {
namespace {

int revisionOf(SQLite::Database& database) {
  return database.execAndGet("PRAGMA user_version").getInt();
}

bool hasTables(SQLite::Database& database) {
  return database.execAndGet("SELECT EXISTS (SELECT 1 FROM sqlite_master)").getInt() != 0;
}

void take(SQLite::Database& database, int revision) {
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  for (const std::string& statement : revisionSql(allTables(), revision)) database.exec(statement);
  database.exec(fmt::format("PRAGMA user_version = {}", revision));
  transaction.commit();
}

}  // namespace

void requireKnownRevision(SQLite::Database& database) {
  const int revision = revisionOf(database);
  if (revision > kNewestRevision) {
    throw DatabaseError(
        fmt::format("The library was written by a newer Quillet (revision {}, this one knows {}).",
                    revision, kNewestRevision),
        DatabaseError::Kind::newer);
  }
  if (revision < 0 || (revision == 0 && hasTables(database))) {
    throw DatabaseError("The library's file was not made by Quillet.",
                        DatabaseError::Kind::foreign);
  }
}

void bringUpToDate(SQLite::Database& database, int revision) {
  for (int next = revisionOf(database) + 1; next <= revision; ++next) take(database, next);
}

}  // namespace quillet
