// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/filters.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// Whether the left name stands before the right one in the user's language.
using NameOrder = std::function<bool(std::string_view, std::string_view)>;

/// The positions of the apps in the asked order. Apps with equal keys keep their order; apps
/// without the key (no price, no rating, no date) come last whichever way the order runs.
[[nodiscard]] std::vector<std::size_t> sortedPositions(std::span<const ITunesApp> apps,
                                                       SortOrder order, const NameOrder& nameOrder);

/// Puts the apps into that order; no record is copied.
void sortApps(std::vector<ITunesApp>& apps, SortOrder order, const NameOrder& nameOrder);

}  // namespace quillet
