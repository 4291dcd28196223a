// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "collector/sql_database.h"

namespace quillet {

/// That there is something recorded where a whole record is to go; the text says what.
class RecordInTheWay : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What is in a record.
struct RecordSize {
  std::int64_t apps = 0;  ///< one for each storefront
  std::int64_t prices = 0;
  std::int64_t rounds = 0;

  friend bool operator==(const RecordSize&, const RecordSize&) = default;
};

[[nodiscard]] RecordSize sizeOf(SqlTransaction& transaction);

/// "apps: 3, prices: 5, rounds: 1".
[[nodiscard]] std::string wordsOf(const RecordSize& size);

/// Copies all rows of a record into an empty one, row by row, and returns what there is then.
/// Throws DatabaseError, also when not all of them arrived, and Stopped.
RecordSize copyRecord(SqlTransaction& from, const SqlDialect& dialect, SqlTransaction& to);

/// Makes a record, or takes one in which nothing is recorded yet, and lets `fill` put in what is to
/// be there; when that throws, all is as it was. Throws RecordInTheWay, DatabaseError and Stopped.
void fillRecord(SqlDatabase& database, const std::function<void(SqlTransaction&)>& fill);

/// Throws DatabaseError where the database finds its own file damaged.
void requireSound(SqlTransaction& transaction);

}  // namespace quillet
