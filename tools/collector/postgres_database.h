// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "collector/sql_database.h"

namespace quillet {

class PostgresConnection;

/// A server that collectors of several machines share. A connection that broke between two
/// transactions is made again.
class PostgresDatabase final : public SqlDatabase {
 public:
  /// `address`: a connection URI or string.
  PostgresDatabase(const std::string& address, const StopWatch& stop);
  ~PostgresDatabase() override;

  [[nodiscard]] std::unique_ptr<SqlTransaction> begin(SqlAccess access) override;
  [[nodiscard]] SqlDialect dialect() const override {
    return {.tableEnd = "",
            .skipLocked = " FOR UPDATE SKIP LOCKED",
            .findTable = "SELECT 1 WHERE to_regclass($1) IS NOT NULL",
            .lockTable = "LOCK TABLE {} IN SHARE ROW EXCLUSIVE MODE",
            .columnsOf =
                "SELECT attname, format_type(atttypid, NULL) FROM pg_attribute "
                "WHERE attrelid = to_regclass($1) AND attnum > 0 AND NOT attisdropped "
                "ORDER BY attnum"};
  }
  [[nodiscard]] bool copyTo(const std::filesystem::path&) override { return false; }
  void giveSpaceBack() override {}  // the server does
  [[nodiscard]] std::int64_t size() override;

 private:
  void requireConnection();

  std::string address_;
  StopWatch stop_;
  std::unique_ptr<PostgresConnection> connection_;
};

}  // namespace quillet
