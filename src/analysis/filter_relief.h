// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "analysis/filters.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// A filter that keeps out what all the others let pass.
struct FilterRelief {
  std::string_view option;  ///< its option on the command line
  std::size_t count = 0;    ///< apps that match without it; above 0
};

using FilterPredicate = std::function<bool(const ITunesApp& app, const AppFilters& filters)>;

/// Of the filters that are set, the one without which most of `apps` match; the first of several
/// alike, and absent where it takes more than one. `matches` knows the rest of the question.
[[nodiscard]] std::optional<FilterRelief> greatestRelief(std::span<const ITunesApp> apps,
                                                         const AppFilters& filters,
                                                         const FilterPredicate& matches);

}  // namespace quillet
