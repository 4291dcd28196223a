// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "analysis/filter_verdict.h"

namespace quillet {

/// How many of the apps each of these sets of filters would leave; absent where that depends on
/// what was not read of some app. `reads` tells of each app what was.
[[nodiscard]] std::vector<std::optional<std::size_t>> filterCounts(
    std::span<const ITunesApp> apps, std::span<const CatalogReads> reads,
    std::span<const AppFilters> choices, const MatchTerms& terms);

}  // namespace quillet
