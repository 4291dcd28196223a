// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/sql_database.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/text.h"
#include "collector/postgres_connection.h"
#include "collector/postgres_database.h"
#include "collector/sqlite_database.h"

namespace quillet {

std::unique_ptr<SqlDatabase> openDatabase(const std::string& address, const StopWatch& stop,
                                          IfMissing ifMissing) {
  const std::size_t colon = address.find("://");
  if (colon != std::string::npos) {
    const std::string scheme = lowerAscii(address.substr(0, colon));
    if (scheme != "postgresql" && scheme != "postgres") {
      throw DatabaseError(fmt::format("'{}' is neither a file nor a PostgreSQL server's address.",
                                      printable(address)));
    }
    return std::make_unique<PostgresDatabase>(scheme + address.substr(colon), stop);
  }
  if (isConnectionString(address)) return std::make_unique<PostgresDatabase>(address, stop);
  return std::make_unique<SqliteDatabase>(
      address, stop, ifMissing == IfMissing::make ? SqliteUse::make : SqliteUse::share);
}

std::unique_ptr<SqlDatabase> openToRead(const std::filesystem::path& file, const StopWatch& stop) {
  return std::make_unique<SqliteDatabase>(file, stop, SqliteUse::read);
}

}  // namespace quillet
