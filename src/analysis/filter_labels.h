// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "analysis/filters.h"

namespace quillet {

/// The chip of the release filter: "Any Time", "Last 2 Years", "Before 2020", "2023 or later".
[[nodiscard]] std::string releasedLabel(const std::optional<ReleasedFilter>& filter);

/// One short text per filter that is set, joined by ", "; empty when none is.
[[nodiscard]] std::string filterSummary(const AppFilters& filters);

}  // namespace quillet
