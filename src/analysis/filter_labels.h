// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/filters.h"

namespace quillet {

/// The chip of the release filter: "Any Time", "Last 2 Years", "Before 2020", "2023 or later".
[[nodiscard]] std::string releasedLabel(const std::optional<ReleasedFilter>& filter);

/// A filter that is set: its short text, its option on the command line, and all filters but this
/// one.
struct SetFilter {
  std::string label;
  std::string_view option;
  AppFilters others;
};
[[nodiscard]] std::vector<SetFilter> setFilters(const AppFilters& filters);

/// Their texts, joined by ", "; empty when none is set.
[[nodiscard]] std::string filterSummary(const AppFilters& filters);

/// Whether everything that `some` sets is set alike in `filters`.
[[nodiscard]] bool holdsAll(const AppFilters& filters, const AppFilters& some);

/// `filters` with everything that `some` sets, or with nothing of it.
[[nodiscard]] AppFilters withAll(const AppFilters& filters, const AppFilters& some);
[[nodiscard]] AppFilters withoutAll(const AppFilters& filters, const AppFilters& some);

}  // namespace quillet
