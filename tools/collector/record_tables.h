// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string_view>

#include "collector/sql_database.h"

namespace quillet {

enum class RecordState { made, broughtUpToDate, asItWas };

/// Makes the tables of rounds, lookups, apps and prices, or brings those of an older collector up
/// to date. Throws DatabaseError, also for a record that a newer collector made.
RecordState makeRecordTables(SqlDatabase& database);

/// The same, as a part of what `transaction` does.
RecordState makeRecordTables(SqlTransaction& transaction, const SqlDialect& dialect);

/// A table that belongs to a record.
struct RecordTable {
  std::string_view name;
  std::string_view key;  ///< the columns by which its rows are told apart
};

/// Every table whose rows belong to what was recorded: whoever copies a record copies these.
[[nodiscard]] std::span<const RecordTable> recordTables();

/// Throws DatabaseError unless there is a record that this collector understands.
void requireRecord(SqlDatabase& database);

}  // namespace quillet
