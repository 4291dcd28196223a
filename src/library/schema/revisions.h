// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

namespace quillet {

/// The revision that this build writes.
inline constexpr int kNewestRevision = 6;

/// Throws DatabaseError where the database is of a newer revision than this build knows, or holds
/// tables but no revision and so was made by another program. Changes nothing.
void requireKnownRevision(SQLite::Database& database);

/// Brings a new or older database, which requireKnownRevision lets pass, to `revision`, each step
/// in a transaction of its own.
void bringUpToDate(SQLite::Database& database, int revision = kNewestRevision);

}  // namespace quillet
