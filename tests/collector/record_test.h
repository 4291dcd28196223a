// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "collector/postgres_server.h"
#include "collector/record_tables.h"
#include "collector/sql_database.h"
#include "support/temporary_folder.h"

namespace quillet {

/// For a shell: what goes to the file "errors" has its times elsewhere, so lines are told without.
inline constexpr const char* kErrorsAreAJournal =
    "true >errors; export JOURNAL_STREAM=$(stat -c %d:%i errors);";

enum class Engine { sqlite, postgres };

/// The tests' one server, started when it is first asked for and ended with the program.
inline const PostgresServer& testServer() {
  static const PostgresServer server;
  return server;
}

/// A test with an empty record, once in each kind of database.
class RecordTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    address = (folder / "collector.db").string();
    if (GetParam() == Engine::postgres) useServer();
    if (IsSkipped()) return;
    database = openDatabase(address, StopWatch(), IfMissing::make);
    makeRecordTables(*database);
  }

  void TearDown() override { database.reset(); }

  /// What `operation` returns of a transaction and the arguments.
  template <typename Operation, typename... Arguments>
  auto change(Operation operation, const Arguments&... arguments) {
    return inTransaction(*database, SqlAccess::alone, [&](SqlTransaction& transaction) {
      return operation(transaction, arguments...);
    });
  }

  const TemporaryFolder own;
  const std::filesystem::path folder = own.path();
  std::string address;
  std::unique_ptr<SqlDatabase> database;

 private:
  void useServer() {
    try {
      address = testServer().address();
    } catch (const std::runtime_error& error) {
      GTEST_SKIP() << "not tested with PostgreSQL: " << error.what();
    }
    inTransaction(*openDatabase(address, StopWatch()), SqlAccess::write,
                  [](SqlTransaction& transaction) {
                    transaction.run("DROP SCHEMA public CASCADE");
                    transaction.run("CREATE SCHEMA public");
                  });
  }
};

inline std::string nameOfEngine(const testing::TestParamInfo<Engine>& engine) {
  return engine.param == Engine::sqlite ? "SQLite" : "PostgreSQL";
}

#define QUILLET_IN_BOTH_DATABASES(Suite)                                                        \
  INSTANTIATE_TEST_SUITE_P(Databases, Suite, testing::Values(Engine::sqlite, Engine::postgres), \
                           nameOfEngine)

}  // namespace quillet
