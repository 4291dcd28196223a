// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <filesystem>

#include "collector/sql_database.h"

namespace quillet {

enum class SqliteUse {
  share,  ///< a file that is there, with others
  make,   ///< the same, and make it where it is not there
  read,   ///< change nothing of it
};

/// A file of one machine. Several processes there may share it; they write one after the other.
class SqliteDatabase final : public SqlDatabase {
 public:
  SqliteDatabase(const std::filesystem::path& file, const StopWatch& stop, SqliteUse use);

  [[nodiscard]] std::unique_ptr<SqlTransaction> begin(SqlAccess access) override;
  [[nodiscard]] SqlDialect dialect() const override {
    return {.tableEnd = " WITHOUT ROWID",
            .skipLocked = "",
            .findTable = "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = $1",
            .lockTable = "",
            .columnsOf = "SELECT name, lower(type) FROM pragma_table_info($1) ORDER BY cid"};
  }
  [[nodiscard]] bool copyTo(const std::filesystem::path& copy) override;
  void giveSpaceBack() override;
  [[nodiscard]] std::int64_t size() override;

 private:
  std::filesystem::path file_;
  StopWatch stop_;  // first: the database asks it
  SQLite::Database database_;
};

/// Sees to it that an SQLite file that nobody uses needs no others beside it, to be read neither.
/// Throws DatabaseError.
void makeOneFile(const std::filesystem::path& file);

}  // namespace quillet
