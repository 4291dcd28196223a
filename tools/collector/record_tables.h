// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/sql_database.h"

namespace quillet {

/// Makes the tables of rounds, lookups, apps and prices. Returns false, with nothing changed, where
/// there are some. Throws DatabaseError, also for a record that a newer collector made.
bool makeRecordTables(SqlDatabase& database);

/// Throws DatabaseError unless there is a record that this collector understands.
void requireRecord(SqlDatabase& database);

}  // namespace quillet
