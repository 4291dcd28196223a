// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>

#include "analysis/filters.h"

namespace quillet {

class StoreFeed;

/// The filter without which most apps would be left.
struct Relief {
  QString text;       ///< how many
  AppFilters others;  ///< all but that one
};

/// Of the filters that are set, the first of those alike, in their order; absent where no single
/// one keeps all apps out.
[[nodiscard]] std::optional<Relief> reliefOf(const StoreFeed& feed, const AppFilters& filters);

}  // namespace quillet
