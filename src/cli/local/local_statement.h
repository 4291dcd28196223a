// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "cli/local/local_store.h"

namespace quillet {

/// A query and the row that it stands on. Columns are asked for by their place, from 0. A value
/// that a column cannot mean counts as absent, like NULL: text where a number belongs, a number or
/// a date that is infinite.
class LocalStatement {
 public:
  /// Throws CLIError, internal, where the query does not fit the database. The store outlives it.
  LocalStatement(const CLILocalStore& store, const std::string& query);

  /// Goes to the next row; false after the last one. Throws CLIError where reading fails: what was
  /// read by then is no answer.
  [[nodiscard]] bool next();

  [[nodiscard]] std::optional<std::int64_t> integer(int column) const;
  [[nodiscard]] std::optional<double> number(int column) const;
  /// Any number but 0 is true.
  [[nodiscard]] std::optional<bool> flag(int column) const;
  [[nodiscard]] std::optional<Instant> date(int column) const;
  /// The bytes as they are, which need not be UTF-8.
  [[nodiscard]] std::optional<std::string> text(int column) const;
  /// Empty where there are none; valid until the next row.
  [[nodiscard]] std::string_view bytes(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  [[nodiscard]] bool holdsNumber(int column) const;

  sqlite3* handle_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// Whether the library has this column: those of older builds lack what came later.
[[nodiscard]] bool hasColumn(const CLILocalStore& store, std::string_view table,
                             std::string_view column);

}  // namespace quillet
