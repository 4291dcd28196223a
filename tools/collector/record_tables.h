// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/sql_database.h"

namespace quillet {

enum class RecordState { made, broughtUpToDate, asItWas };

/// Makes the tables of rounds, lookups, apps and prices, or brings those of an older collector up
/// to date. Throws DatabaseError, also for a record that a newer collector made.
RecordState makeRecordTables(SqlDatabase& database);

/// Throws DatabaseError unless there is a record that this collector understands.
void requireRecord(SqlDatabase& database);

}  // namespace quillet
