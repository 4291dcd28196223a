// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_statement.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "cli/cli_error.h"

namespace quillet {

namespace {

using namespace std::chrono;

constexpr Instant kReferenceDate = sys_days{2001y / January / 1};
// Beyond the years that a date text has, and far from what a count of milliseconds can hold.
constexpr double kFarthestSeconds = 3e11;

CLIError readFailure(sqlite3* handle) {
  return {CLIError::Code::internal,
          fmt::format("Could not read Quillet's database: {}", sqlite3_errmsg(handle))};
}

}  // namespace

LocalStatement::LocalStatement(const CLILocalStore& store, const std::string& query)
    : handle_(store.handle()) {
  sqlite3_stmt* statement = nullptr;
  // The size counts the terminating zero, which spares SQLite a copy.
  const int result = sqlite3_prepare_v2(handle_, query.c_str(), static_cast<int>(query.size() + 1),
                                        &statement, nullptr);
  statement_.reset(statement);
  if (result != SQLITE_OK) throw readFailure(handle_);
}

bool LocalStatement::next() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) throw readFailure(handle_);
  return result == SQLITE_ROW;
}

bool LocalStatement::holdsNumber(int column) const {
  const int type = sqlite3_column_type(statement_.get(), column);
  return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

std::optional<std::int64_t> LocalStatement::integer(int column) const {
  if (!holdsNumber(column)) return {};
  return sqlite3_column_int64(statement_.get(), column);
}

std::optional<double> LocalStatement::number(int column) const {
  if (!holdsNumber(column)) return {};
  const double number = sqlite3_column_double(statement_.get(), column);
  if (!std::isfinite(number)) return {};
  return number;
}

std::optional<bool> LocalStatement::flag(int column) const {
  const auto number = integer(column);
  if (!number) return {};
  return *number != 0;
}

std::optional<Instant> LocalStatement::date(int column) const {
  const auto offset = number(column);
  if (!offset) return {};
  const double nearest = std::clamp(*offset, -kFarthestSeconds, kFarthestSeconds);
  return kReferenceDate + milliseconds(static_cast<std::int64_t>(std::floor(nearest * 1000)));
}

std::optional<std::string> LocalStatement::text(int column) const {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  if (bytes == nullptr) return {};
  return std::string(bytes,
                     static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column)));
}

std::string_view LocalStatement::bytes(int column) const {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

bool hasColumn(const CLILocalStore& store, std::string_view table, std::string_view column) {
  return LocalStatement(
             store,
             fmt::format("SELECT 1 FROM pragma_table_info('{}') WHERE name = '{}'", table, column))
      .next();
}

}  // namespace quillet
