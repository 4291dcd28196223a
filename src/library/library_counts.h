// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

struct CollectionCount {
  RowId key = 0;
  std::string name;
  std::string symbolName;
  std::int64_t apps = 0;

  friend bool operator==(const CollectionCount&, const CollectionCount&) = default;
};

/// How much of each kind the library holds.
struct LibraryCounts {
  std::int64_t watched = 0;
  std::int64_t unreadAlerts = 0;
  std::int64_t owned = 0;
  std::int64_t updates = 0;  ///< owned apps with an update that the user did not skip
  std::int64_t viewed = 0;
  std::int64_t deals = 0;                    ///< of one storefront
  std::optional<Instant> checked;            ///< when prices were last read of any watched app
  std::vector<CollectionCount> collections;  ///< by name, letter case aside

  friend bool operator==(const LibraryCounts&, const LibraryCounts&) = default;
};

/// By name, letter case aside.
[[nodiscard]] std::vector<CollectionCount> collectionCounts(SQLite::Database& database);

/// `country` is the storefront whose deals are counted.
[[nodiscard]] LibraryCounts libraryCounts(SQLite::Database& database, const std::string& country);

}  // namespace quillet
