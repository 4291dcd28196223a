// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <filesystem>

#include "collector/sql_database.h"

namespace quillet {

/// A file of one machine. Several processes there may share it; they write one after the other.
class SqliteDatabase final : public SqlDatabase {
 public:
  SqliteDatabase(const std::filesystem::path& file, const StopWatch& stop, IfMissing ifMissing);

  [[nodiscard]] std::unique_ptr<SqlTransaction> begin(SqlAccess access) override;
  [[nodiscard]] SqlDialect dialect() const override {
    return {.tableEnd = " WITHOUT ROWID",
            .skipLocked = "",
            .findTable = "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = $1"};
  }
  [[nodiscard]] std::int64_t size() override;

 private:
  std::filesystem::path file_;
  StopWatch stop_;  // first: the database asks it
  SQLite::Database database_;
};

}  // namespace quillet
