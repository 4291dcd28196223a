// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "library/schema/revisions.h"
#include "library/write_transaction.h"

namespace quillet {

/// A test over a library in memory, open for changes.
class MemoryLibraryTest : public testing::Test {
 protected:
  MemoryLibraryTest() {
    database_.exec("PRAGMA foreign_keys = ON");
    bringUpToDate(database_);
  }

  /// What was touched since the last call.
  LibraryChanges takeChanges() { return std::exchange(transaction_.changes, {}); }

  SQLite::Database database_{":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
  WriteTransaction transaction_{database_, {}};
};

}  // namespace quillet
