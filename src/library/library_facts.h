// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"

namespace quillet {

struct TableFacts {
  std::string name;  ///< as the database has it
  std::int64_t rows = 0;

  friend bool operator==(const TableFacts&, const TableFacts&) = default;
};

/// What a library is like, without a word of what is in it.
struct LibraryFacts {
  std::vector<TableFacts> tables;
  std::optional<Instant> pricesChecked;   ///< of any watched app; absent where never
  std::optional<Instant> chartsRecorded;  ///< likewise, of any chart
};

/// Reads through the whole of each table.
[[nodiscard]] LibraryFacts libraryFacts(SQLite::Database& database);

}  // namespace quillet
