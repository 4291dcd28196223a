// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/revisions.h"

#include <SQLiteCpp/Statement.h>
#include <gtest/gtest.h>

#include <string>

#include "library/schema/entities.h"
#include "library/schema/rows.h"

namespace quillet {
namespace {

SQLite::Database inMemory() {
  return SQLite::Database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
}

std::string contentsOf(SQLite::Database& database) {
  std::string text = database.execAndGet("PRAGMA user_version").getString();
  SQLite::Statement rows(database, "SELECT sql FROM sqlite_master ORDER BY name");
  while (rows.executeStep()) text += "\n" + rows.getColumn(0).getString();
  return text;
}

TEST(Revisions, AnOldDatabaseIsBroughtUpWithoutLosingARow) {
  SQLite::Database database = inMemory();
  bringUpToDate(database, 1);
  database.exec(
      "INSERT INTO ZOWNEDAPP (Z_PK, ZTRACKID, ZCOUNTRY, ZPLATFORMRAW, ZNAME, ZSOURCERAW, ZADDEDAT) "
      "VALUES (7, 1480068668, 'us', 'mac', 'Paperfold', 'manual', 0.5)");
  bringUpToDate(database);
  const auto row = selectRow<OwnedApp>(database, "WHERE Z_PK = 7");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->name, "Paperfold");
  EXPECT_EQ(row->skippedVersion, std::nullopt);

  SQLite::Database fresh = inMemory();
  bringUpToDate(fresh);
  EXPECT_EQ(contentsOf(database), contentsOf(fresh));
}

TEST(Revisions, AStepThatFailsLeavesTheRevisionBefore) {
  SQLite::Database database = inMemory();
  bringUpToDate(database, 2);
  // In the way of the last of the step's statements.
  database.exec("ALTER TABLE ZOWNEDAPP ADD COLUMN ZSKIPPEDVERSION");
  const std::string before = contentsOf(database);
  EXPECT_THROW(bringUpToDate(database), std::exception);
  EXPECT_EQ(contentsOf(database), before);
}

}  // namespace
}  // namespace quillet
