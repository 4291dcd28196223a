// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "analysis/filters.h"
#include "cli/online/app/app_summary.h"
#include "cli/streams.h"
#include "store/records/platform.h"

namespace quillet {

/// The answer to a search: the request as it was understood, and what was found.
struct CLISearchPayload {
  struct Query {
    std::string term;
    Platform platform = Platform::mac;
    std::string country;
    std::size_t limit = 0;
    std::size_t scanned = 0;  ///< how many of the store's results were examined
    SortOrder sort = SortOrder::relevance;
    AppFilters filters;
  };

  Query query;
  std::vector<CLIAppSummary> results;
};

[[nodiscard]] std::string renderSearchJson(const CLISearchPayload& payload);

/// A header line and, where anything was found, an aligned table that fits the style's width.
[[nodiscard]] std::string renderSearchText(const CLISearchPayload& payload,
                                           const LocaleFormats& formats, const TextStyle& style);

}  // namespace quillet
