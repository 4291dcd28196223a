// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_relief.h"

#include <algorithm>

#include "analysis/filter_labels.h"

namespace quillet {

std::optional<FilterRelief> greatestRelief(std::span<const ITunesApp> apps,
                                           const AppFilters& filters,
                                           const FilterPredicate& matches) {
  FilterRelief greatest;
  for (const SetFilter& each : setFilters(filters)) {
    const auto count = static_cast<std::size_t>(std::ranges::count_if(
        apps, [&](const ITunesApp& app) { return matches(app, each.others); }));
    if (count > greatest.count) greatest = {each.option, count};
  }
  return greatest.count > 0 ? std::optional(greatest) : std::nullopt;
}

}  // namespace quillet
