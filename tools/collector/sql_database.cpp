// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/sql_database.h"

#include "collector/postgres_database.h"
#include "collector/sqlite_database.h"

namespace quillet {

std::unique_ptr<SqlDatabase> openDatabase(const std::string& address, const StopWatch& stop) {
  if (address.starts_with("postgresql://") || address.starts_with("postgres://")) {
    return std::make_unique<PostgresDatabase>(address, stop);
  }
  return std::make_unique<SqliteDatabase>(address, stop);
}

}  // namespace quillet
