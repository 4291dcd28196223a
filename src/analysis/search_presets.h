// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "analysis/filters.h"

namespace quillet {

/// A ready-made set of filters that the search offers by name.
struct SearchPreset {
  std::string identifier;  ///< stored; never change
  std::string title;
  std::string subtitle;
  AppFilters filters;
};

/// All presets, in the order in which they are shown.
[[nodiscard]] std::vector<SearchPreset> searchPresets();

/// Whether `filters` have each filter of the preset as it has it, whatever else they have.
[[nodiscard]] bool holds(const AppFilters& filters, const SearchPreset& preset);

/// With the preset's filters, or, where they hold already, without them. All others stay.
[[nodiscard]] AppFilters toggled(const AppFilters& filters, const SearchPreset& preset);

[[nodiscard]] std::string presetTooltip(const SearchPreset& preset);

}  // namespace quillet
