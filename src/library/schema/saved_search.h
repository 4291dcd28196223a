// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// A named search that the user can run again.
struct SavedSearch {
  RowId id = 0;
  std::string name;
  std::string query;  ///< may be empty
  std::string platformRaw;
  std::string country;
  std::string sortRaw;
  std::string filtersJSON;
  Instant createdAt{};
  std::optional<Instant> lastUsedAt;

  friend bool operator==(const SavedSearch&, const SavedSearch&) = default;
};

template <>
inline constexpr auto kTable<SavedSearch> =
    Table{"SavedSearch", 1, KeyUse::unique, std::array<Index, 3>{},
          std::tuple{attribute("name", &SavedSearch::name), attribute("query", &SavedSearch::query),
                     attribute("platformRaw", &SavedSearch::platformRaw),
                     attribute("country", &SavedSearch::country),
                     attribute("sortRaw", &SavedSearch::sortRaw),
                     attribute("filtersJSON", &SavedSearch::filtersJSON),
                     attribute("createdAt", &SavedSearch::createdAt),
                     attribute("lastUsedAt", &SavedSearch::lastUsedAt)}};

}  // namespace quillet
