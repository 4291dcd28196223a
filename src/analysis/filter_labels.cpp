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

template <typename Enum, std::size_t N>
void addCase(std::vector<std::string>& labels, Enum value, const EnumTable<Enum, N>& table) {
  if (value != table.front().value) labels.emplace_back(textOf(table, value));
}

void addPriceAndRatings(std::vector<std::string>& labels, const AppFilters& filters) {
  addCase(labels, filters.price, kPriceLabels);
  if (filters.maxPrice) labels.push_back(fmt::format("Price up to {}", *filters.maxPrice));
  if (filters.minRating > 0) labels.push_back(fmt::format("{}+ stars", filters.minRating));
  if (filters.minRatingCount >= 1) {
    labels.push_back(fmt::format("{}+ ratings", filters.minRatingCount));
  }
}

}  // namespace

std::string releasedLabel(const std::optional<ReleasedFilter>& filter) {
  return filter ? std::visit(ReleasedLabel{}, *filter) : "Any Time";
}

std::string filterSummary(const AppFilters& filters) {
  std::vector<std::string> labels;
  addPriceAndRatings(labels, filters);
  addCase(labels, filters.updatedWithin, kUpdatedLabels);
  addCase(labels, filters.maxSize, kSizeLabels);
  if (filters.genre) labels.push_back(*filters.genre);
  addCase(labels, filters.purchases, kPurchaseLabels);
  addCase(labels, filters.architecture, kArchitectureLabels);
  if (filters.released) labels.push_back(releasedLabel(filters.released));
  if (filters.runsOn) labels.push_back(fmt::format("Runs on {}", filters.runsOn->atMost));
  if (filters.hideOwned) labels.emplace_back("Not in My Apps");
  return join(labels, ", ");
}

}  // namespace quillet
