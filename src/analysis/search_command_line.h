// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/filters.h"
#include "store/records/platform.h"

namespace quillet {

/// What a search asks, apart from where and when it was kept.
struct SearchRequest {
  std::string query;
  Platform platform = Platform::mac;
  std::optional<std::string> country;  ///< a storefront; absent is the user's own
  AppFilters filters;
  SortOrder sort = SortOrder::relevance;

  friend bool operator==(const SearchRequest&, const SearchRequest&) = default;
};

/// The `quillet search` command that asks the same, to paste into a POSIX shell: no text of the
/// request can end its quotes or run as a command. Line breaks stay as they are inside quotes. A
/// query that begins with "-" gets a blank before it, which the search trims away; a system version
/// is written as the digits that it compares by.
[[nodiscard]] std::string searchCommandLine(const SearchRequest& request);

/// The query of such a command alone, quotes included.
[[nodiscard]] std::string searchTermWord(std::string_view query);

}  // namespace quillet
