// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/sql_database.h"

namespace quillet {

/// Makes the tables of rounds, lookups, apps and prices where there are none. Throws DatabaseError,
/// also for a record that a newer collector made.
void makeRecordTables(SqlDatabase& database);

}  // namespace quillet
