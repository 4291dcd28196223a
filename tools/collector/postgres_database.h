// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "collector/sql_database.h"

namespace quillet {

/// A server that collectors of several machines share. A connection that broke between two
/// transactions is made again.
class PostgresDatabase final : public SqlDatabase {
 public:
  /// `address`: a connection URI.
  explicit PostgresDatabase(const std::string& address);
  ~PostgresDatabase() override;

  [[nodiscard]] std::unique_ptr<SqlTransaction> begin(SqlAccess access) override;
  [[nodiscard]] SqlDialect dialect() const override { return {"", " FOR UPDATE SKIP LOCKED"}; }

 private:
  class Connection;  // the library's headers stay out of everybody else's way

  void connect();
  void requireConnection();

  std::string address_;
  std::unique_ptr<Connection> connection_;
};

}  // namespace quillet
