// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/search_presets.h"

#include "analysis/filter_labels.h"

namespace quillet {

std::vector<SearchPreset> searchPresets() {
  AppFilters buyOnceMaintained;
  buyOnceMaintained.purchases = PurchaseFilter::buyOutright;
  buyOnceMaintained.updatedWithin = UpdatedFilter::sixMonths;
  return {{.identifier = "buy-once-maintained",
           .title = "Buy Once, Still Maintained",
           .subtitle = "Apps you can own outright, updated in the last 6 months",
           .filters = buyOnceMaintained}};
}

std::string presetTooltip(const SearchPreset& preset) {
  return "Search with these filters: " + filterSummary(preset.filters);
}

}  // namespace quillet
