// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "library/schema/revisions.h"
#include "library/write_transaction.h"

namespace quillet {

/// A library in memory, open for changes.
class MemoryLibrary {
 public:
  MemoryLibrary() : database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
    database.exec("PRAGMA foreign_keys = ON");
    bringUpToDate(database);
  }

  /// What was touched since the last call.
  LibraryChanges takeChanges() { return std::exchange(transaction.changes, {}); }

  SQLite::Database database;
  WriteTransaction transaction{database, {}};
};

/// A test over a library in memory.
class MemoryLibraryTest : public testing::Test {
 protected:
  MemoryLibrary library_;
  SQLite::Database& database_ = library_.database;
  WriteTransaction& transaction_ = library_.transaction;
};

}  // namespace quillet
