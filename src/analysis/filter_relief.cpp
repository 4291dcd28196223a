// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_relief.h"

#include <algorithm>

namespace quillet {

namespace {

std::string_view priceOption(const AppFilters& filters) {
  return filters.price == PriceFilter::free ? "--free" : "--paid";
}

std::string_view releasedOption(const AppFilters& filters) {
  if (!filters.released) return {};
  if (std::holds_alternative<ReleasedWithin>(*filters.released)) return "--released-within";
  return std::holds_alternative<ReleasedBefore>(*filters.released) ? "--released-before"
                                                                   : "--released-after";
}

/// One filter: its option, and how it is taken out.
struct FilterRow {
  std::string_view option;
  void (*leaveOut)(AppFilters& filters);
  std::string_view (*optionOf)(const AppFilters& filters) = nullptr;  ///< where it has several
};

constexpr FilterRow kFilters[] = {
    {"", [](AppFilters& f) { f.price = PriceFilter::any; }, priceOption},
    {"--max-price", [](AppFilters& f) { f.maxPrice.reset(); }},
    {"--min-rating", [](AppFilters& f) { f.minRating = 0; }},
    {"--min-ratings", [](AppFilters& f) { f.minRatingCount = 0; }},
    {"--updated-within", [](AppFilters& f) { f.updatedWithin = UpdatedFilter::any; }},
    {"--max-size", [](AppFilters& f) { f.maxSize = SizeFilter::any; }},
    {"--genre", [](AppFilters& f) { f.genre.reset(); }},
    {"--purchases", [](AppFilters& f) { f.purchases = PurchaseFilter::any; }},
    {"--architecture", [](AppFilters& f) { f.architecture = ArchitectureFilter::any; }},
    {"", [](AppFilters& f) { f.released.reset(); }, releasedOption},
    {"--runs-on", [](AppFilters& f) { f.runsOn.reset(); }},
    {"--hide-owned", [](AppFilters& f) { f.hideOwned = false; }},
};

}  // namespace

std::optional<FilterRelief> greatestRelief(std::span<const ITunesApp> apps,
                                           const AppFilters& filters,
                                           const FilterPredicate& matches) {
  FilterRelief greatest;
  for (const FilterRow& row : kFilters) {
    AppFilters others = filters;
    row.leaveOut(others);
    if (others == filters) continue;
    const auto count = static_cast<std::size_t>(
        std::ranges::count_if(apps, [&](const ITunesApp& app) { return matches(app, others); }));
    if (count <= greatest.count) continue;
    greatest = {row.optionOf != nullptr ? row.optionOf(filters) : row.option, count};
  }
  return greatest.count > 0 ? std::optional(greatest) : std::nullopt;
}

}  // namespace quillet
