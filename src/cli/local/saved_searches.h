// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "analysis/filters.h"
#include "base/dates.h"
#include "cli/local/list_payload.h"
#include "cli/local/local_call.h"
#include "cli/streams.h"

namespace quillet {

struct CLISavedSearch {
  std::string name;
  std::string query;
  std::optional<std::string> platform;
  std::optional<std::string> country;
  std::optional<std::string> sort;  ///< as stored: "priceAscending"
  AppFilters filters;               ///< none where the stored ones cannot be read
  std::string commandLine;          ///< the command that runs the same search
  std::optional<Instant> createdAt;
  std::optional<Instant> lastUsedAt;
};

using CLISavedSearches = CLIListPayload<CLISavedSearch>;

/// `quillet saved-searches`: all of them, by name.
[[nodiscard]] CLISavedSearches readSavedSearches(const LocalCall& call);

[[nodiscard]] std::string renderSavedSearchesJson(const CLISavedSearches& searches);

/// A block for each search, with its command to paste.
[[nodiscard]] std::string renderSavedSearchesText(const CLISavedSearches& searches,
                                                  const TextStyle& style);

}  // namespace quillet
