// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_labels.h"

#include <fmt/format.h>

#include <vector>

#include "base/text.h"

namespace quillet {

namespace {

constexpr EnumTable<PriceFilter, 3> kPriceLabels{{
    {PriceFilter::any, ""},
    {PriceFilter::free, "Free"},
    {PriceFilter::paid, "Paid"},
}};
constexpr EnumTable<UpdatedFilter, 5> kUpdatedLabels{{
    {UpdatedFilter::any, ""},
    {UpdatedFilter::month, "Updated in the last month"},
    {UpdatedFilter::sixMonths, "Updated in the last 6 months"},
    {UpdatedFilter::year, "Updated in the last year"},
    {UpdatedFilter::twoYears, "Updated in the last 2 years"},
}};
constexpr EnumTable<SizeFilter, 4> kSizeLabels{{
    {SizeFilter::any, ""},
    {SizeFilter::under100MB, "Up to 100 MB"},
    {SizeFilter::under500MB, "Up to 500 MB"},
    {SizeFilter::under2GB, "Up to 2 GB"},
}};
constexpr EnumTable<PurchaseFilter, 7> kPurchaseLabels{{
    {PurchaseFilter::any, ""},
    {PurchaseFilter::hasSubscription, "Has a subscription"},
    {PurchaseFilter::noSubscription, "No subscription"},
    {PurchaseFilter::hasInAppPurchases, "Has in-app purchases"},
    {PurchaseFilter::noInAppPurchases, "No in-app purchases"},
    {PurchaseFilter::buyOutright, "Can be bought outright"},
    {PurchaseFilter::subscriptionOnly, "Subscription only"},
}};
constexpr EnumTable<ArchitectureFilter, 3> kArchitectureLabels{{
    {ArchitectureFilter::any, ""},
    {ArchitectureFilter::appleSilicon, "Apple silicon"},
    {ArchitectureFilter::needsRosetta, "Needs Rosetta"},
}};
static_assert(isComplete(kPriceLabels, PriceFilter::paid));
static_assert(isComplete(kUpdatedLabels, UpdatedFilter::twoYears));
static_assert(isComplete(kSizeLabels, SizeFilter::under2GB));
static_assert(isComplete(kPurchaseLabels, PurchaseFilter::subscriptionOnly));
static_assert(isComplete(kArchitectureLabels, ArchitectureFilter::needsRosetta));

struct ReleasedLabel {
  std::string operator()(const ReleasedWithin& filter) const {
    constexpr std::int64_t kMonthsInYear = 12;
    if (filter.months == 1) return "Last Month";
    if (filter.months == kMonthsInYear) return "Last Year";
    if (filter.months % kMonthsInYear != 0) return fmt::format("Last {} Months", filter.months);
    return fmt::format("Last {} Years", filter.months / kMonthsInYear);
  }
  std::string operator()(const ReleasedBefore& filter) const {
    return fmt::format("Before {}", filter.year);
  }
  std::string operator()(const ReleasedFrom& filter) const {
    return fmt::format("{} or later", filter.year);
  }
};

using Label = std::optional<std::string>;

/// Absent for "any", the table's first row.
template <typename Enum, std::size_t N>
Label labelOf(const EnumTable<Enum, N>& table, Enum value) {
  return value == table.front().value ? Label() : Label(textOf(table, value));
}

Label maxPriceLabel(const AppFilters& filters) {
  return filters.maxPrice ? Label(fmt::format("Price up to {}", *filters.maxPrice)) : Label();
}
Label minRatingLabel(const AppFilters& filters) {
  return filters.minRating > 0 ? Label(fmt::format("{}+ stars", filters.minRating)) : Label();
}
Label minRatingCountLabel(const AppFilters& filters) {
  if (filters.minRatingCount < 1) return std::nullopt;
  return fmt::format("{}+ ratings", filters.minRatingCount);
}
Label runsOnLabel(const AppFilters& filters) {
  return filters.runsOn ? Label(fmt::format("Runs on {}", filters.runsOn->atMost)) : Label();
}

template <auto Field>
void takeField(AppFilters& to, const AppFilters& from) {
  to.*Field = from.*Field;
}

using OptionOf = std::string_view (*)(const AppFilters& filters);

std::string_view priceOption(const AppFilters& filters) {
  return filters.price == PriceFilter::free ? "--free" : "--paid";
}

std::string_view releasedOption(const AppFilters& filters) {
  if (!filters.released) return {};
  if (std::holds_alternative<ReleasedWithin>(*filters.released)) return "--released-within";
  return std::holds_alternative<ReleasedBefore>(*filters.released) ? "--released-before"
                                                                   : "--released-after";
}

/// One filter: its option, its text, absent where it is not set, and how it is taken from others.
struct FilterRow {
  std::variant<std::string_view, OptionOf> option;
  Label (*label)(const AppFilters& filters);
  void (*take)(AppFilters& to, const AppFilters& from);
};

constexpr FilterRow kFilters[] = {
    {priceOption, [](const AppFilters& f) { return labelOf(kPriceLabels, f.price); },
     takeField<&AppFilters::price>},
    {"--max-price", maxPriceLabel, takeField<&AppFilters::maxPrice>},
    {"--min-rating", minRatingLabel, takeField<&AppFilters::minRating>},
    {"--min-ratings", minRatingCountLabel, takeField<&AppFilters::minRatingCount>},
    {"--updated-within",
     [](const AppFilters& f) { return labelOf(kUpdatedLabels, f.updatedWithin); },
     takeField<&AppFilters::updatedWithin>},
    {"--max-size", [](const AppFilters& f) { return labelOf(kSizeLabels, f.maxSize); },
     takeField<&AppFilters::maxSize>},
    {"--genre", [](const AppFilters& f) { return f.genre; }, takeField<&AppFilters::genre>},
    {"--purchases", [](const AppFilters& f) { return labelOf(kPurchaseLabels, f.purchases); },
     takeField<&AppFilters::purchases>},
    {"--architecture",
     [](const AppFilters& f) { return labelOf(kArchitectureLabels, f.architecture); },
     takeField<&AppFilters::architecture>},
    {releasedOption,
     [](const AppFilters& f) { return f.released ? Label(releasedLabel(f.released)) : Label(); },
     takeField<&AppFilters::released>},
    {"--runs-on", runsOnLabel, takeField<&AppFilters::runsOn>},
    {"--hide-owned",
     [](const AppFilters& f) { return f.hideOwned ? Label("Not in My Apps") : Label(); },
     takeField<&AppFilters::hideOwned>},
};

std::string_view optionOf(const FilterRow& row, const AppFilters& filters) {
  const auto* several = std::get_if<OptionOf>(&row.option);
  return several == nullptr ? std::get<std::string_view>(row.option) : (*several)(filters);
}

/// As `filters`, but what `some` sets is as in `source`.
AppFilters replaced(AppFilters filters, const AppFilters& some, const AppFilters& source) {
  for (const FilterRow& row : kFilters) {
    if (row.label(some)) row.take(filters, source);
  }
  return filters;
}

}  // namespace

std::string releasedLabel(const std::optional<ReleasedFilter>& filter) {
  return filter ? std::visit(ReleasedLabel{}, *filter) : "Any Time";
}

std::vector<SetFilter> setFilters(const AppFilters& filters) {
  std::vector<SetFilter> set;
  for (const FilterRow& row : kFilters) {
    Label label = row.label(filters);
    if (!label) continue;
    AppFilters others = filters;
    row.take(others, {});
    set.push_back({std::move(*label), optionOf(row, filters), std::move(others)});
  }
  return set;
}

std::string filterSummary(const AppFilters& filters) {
  std::vector<std::string> labels;
  for (SetFilter& each : setFilters(filters)) labels.push_back(std::move(each.label));
  return join(labels, ", ");
}

bool holdsAll(const AppFilters& filters, const AppFilters& some) {
  return withAll(filters, some) == filters;
}

AppFilters withAll(const AppFilters& filters, const AppFilters& some) {
  return replaced(filters, some, some);
}

AppFilters withoutAll(const AppFilters& filters, const AppFilters& some) {
  return replaced(filters, some, {});
}

}  // namespace quillet
