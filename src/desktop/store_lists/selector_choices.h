// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desktop/lists/section.h"
#include "desktop/store_lists/filter_choices.h"
#include "store/records/chart_type.h"

namespace quillet {

/// By the platform's word.
[[nodiscard]] std::vector<SelectorChoice> platformChoices(Platform chosen);
/// By code: those with price data, then all by the alphabet.
[[nodiscard]] std::vector<SelectorChoice> storefrontChoices(const std::string& chosen);
/// By the store's name of the category; empty for all.
[[nodiscard]] std::vector<SelectorChoice> categoryChoices(const FilterPanelState& state);
/// By the chart's word.
[[nodiscard]] std::vector<SelectorChoice> chartChoices(ChartType chosen, Platform platform);
/// Of charts: by the category's ID; empty for all.
[[nodiscard]] std::vector<SelectorChoice> chartCategoryChoices(std::optional<int> chosen);

}  // namespace quillet
