// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/query_log.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillet {
namespace {

using namespace std::chrono_literals;

/// A database in memory and what is logged of it; only a test lets time pass.
class QueryLogTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(sqlite3_open(":memory:", &handle), SQLITE_OK); }
  void TearDown() override { sqlite3_close(handle); }

  void run(const char* sql) const { sqlite3_exec(handle, sql, nullptr, nullptr, nullptr); }

  std::string lines;
  std::chrono::microseconds time = 0us;
  QueryLog log{[this](const std::string& line) { lines += line + '\n'; }, [this] { return time; }};
  sqlite3* handle = nullptr;
};

TEST_F(QueryLogTest, TellsOfEachQueryWithoutItsValues) {
  run("PRAGMA foreign_keys = ON");
  log.watch(handle);
  run("CREATE TABLE t (a INTEGER PRIMARY KEY, b REFERENCES t ON DELETE CASCADE)");
  run("INSERT INTO t\n  VALUES (1, NULL), (2, 1), (3, 2)");
  run("SELECT a FROM t WHERE a IN (1, 2,5) AND b IS NOT 'it''s'");
  run("DELETE FROM t WHERE a = 1");
  run("SELECT * FROM t");
  run("INSERT INTO t VALUES (7, 8)");
  sqlite3_close(std::exchange(handle, nullptr));
  EXPECT_EQ(lines,
            "db open  \n"
            "db     0.00 ms       0 changed CREATE TABLE t (a INTEGER PRIMARY KEY, b REFERENCES t "
            "ON DELETE CASCADE)\n"
            "db     0.00 ms       3 changed INSERT INTO t VALUES (?, NULL), (?, ...), (?, ...)\n"
            "db     0.00 ms       2 rows    SELECT a FROM t WHERE a IN (?, ...) AND b IS NOT ?\n"
            "db     0.00 ms       3 changed DELETE FROM t WHERE a = ?\n"
            "db     0.00 ms       0 rows    SELECT * FROM t\n"
            "db     0.00 ms       0 changed INSERT INTO t VALUES (?, ...)\n"
            "db close\n");
}

TEST_F(QueryLogTest, TimesEachQueryFromItsOwnStart) {
  log.watch(handle);
  time = 5s;
  sqlite3_stmt* slow = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(handle, "VALUES (1), (2)", -1, &slow, nullptr), SQLITE_OK);
  run("CREATE TABLE t (a)");  // since which the other one starts anew
  lines.clear();
  sqlite3_step(slow);
  time += 1500us;
  run("INSERT INTO t VALUES ('x')");
  time += 98'765us;
  sqlite3_finalize(slow);
  EXPECT_EQ(lines,
            "db     0.00 ms       1 changed INSERT INTO t VALUES (?)\n"
            "db   100.27 ms       1 rows    VALUES (?), (?)\n");
}

}  // namespace
}  // namespace quillet
