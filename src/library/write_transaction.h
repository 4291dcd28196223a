// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include "library/library_changes.h"

namespace quillet {

/// What an operation that changes the library works on. All that happens in one transaction is
/// committed together or not at all; an operation notes in `changes` what it touched.
struct WriteTransaction {
  SQLite::Database& database;
  LibraryChanges changes;
};

}  // namespace quillet
