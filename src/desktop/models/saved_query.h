// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/models/place.h"
#include "library/schema/saved_search.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// A saved search, as windows show and run it.
struct SavedQuery {
  RowId key = 0;
  std::string name;
  StoreQuery query;

  friend bool operator==(const SavedQuery&, const SavedQuery&) = default;
};

/// What the row cannot mean is as in a new search.
[[nodiscard]] SavedQuery savedQueryOf(const SavedSearch& search);

/// By name, letter case aside. Runs on the library's thread.
[[nodiscard]] std::vector<SavedQuery> savedQueries(SQLite::Database& database);

/// A new row that keeps the search; `storefront` stands for one that names none.
[[nodiscard]] SavedSearch savedSearchOf(const SearchRequest& request, std::string name,
                                        const std::string& storefront, Instant now);

/// Whether both ask and show the same; without a storefront they mean `storefront`.
[[nodiscard]] bool isSameSearch(StoreQuery left, StoreQuery right, const std::string& storefront);

/// In Search, showing what is asked. The user's storefront is not named in it, so that the same
/// question is the same place.
[[nodiscard]] Place searchPlace(StoreQuery query, const std::string& storefront);

}  // namespace quillet
