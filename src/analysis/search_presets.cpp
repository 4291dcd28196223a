// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/search_presets.h"

#include <tuple>

#include "analysis/filter_labels.h"

namespace quillet {

namespace {

constexpr std::tuple kFields{
    &AppFilters::price,          &AppFilters::maxPrice,      &AppFilters::minRating,
    &AppFilters::minRatingCount, &AppFilters::updatedWithin, &AppFilters::maxSize,
    &AppFilters::genre,          &AppFilters::purchases,     &AppFilters::runsOn,
    &AppFilters::architecture,   &AppFilters::released,      &AppFilters::hideOwned};

/// Calls `visit` with each field that `filters` set.
template <typename Visit>
void forEachSet(const AppFilters& filters, Visit visit) {
  const AppFilters unset;
  const auto look = [&](auto field) {
    if (filters.*field != unset.*field) visit(field);
  };
  std::apply([&](auto... field) { (look(field), ...); }, kFields);
}

}  // namespace

std::vector<SearchPreset> searchPresets() {
  AppFilters buyOnceMaintained;
  buyOnceMaintained.purchases = PurchaseFilter::buyOutright;
  buyOnceMaintained.updatedWithin = UpdatedFilter::sixMonths;
  return {{.identifier = "buy-once-maintained",
           .title = "Buy Once, Still Maintained",
           .subtitle = "Apps you can own outright, updated in the last 6 months",
           .filters = buyOnceMaintained}};
}

bool holds(const AppFilters& filters, const SearchPreset& preset) {
  bool all = true;
  forEachSet(preset.filters,
             [&](auto field) { all = all && filters.*field == preset.filters.*field; });
  return all;
}

AppFilters toggled(const AppFilters& filters, const SearchPreset& preset) {
  const AppFilters from = holds(filters, preset) ? AppFilters() : preset.filters;
  AppFilters result = filters;
  forEachSet(preset.filters, [&](auto field) { result.*field = from.*field; });
  return result;
}

std::string presetTooltip(const SearchPreset& preset) {
  return "Search with these filters: " + filterSummary(preset.filters);
}

}  // namespace quillet
