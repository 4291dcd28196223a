// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "base/enum_table.h"

namespace quillet {

// The cases' order and raw texts are stored; never change them.

enum class PriceFilter { any, free, paid };
enum class UpdatedFilter { any, month, sixMonths, year, twoYears };
enum class SizeFilter { any, under100MB, under500MB, under2GB };
enum class PurchaseFilter {
  any,
  hasSubscription,
  noSubscription,
  hasInAppPurchases,
  noInAppPurchases,
  buyOutright,
  subscriptionOnly,
};
enum class ArchitectureFilter { any, appleSilicon, needsRosetta };

/// First released within the last months, before a calendar year, or from a calendar year on.
struct ReleasedWithin {
  std::int64_t months = 0;
  friend bool operator==(const ReleasedWithin&, const ReleasedWithin&) = default;
};
struct ReleasedBefore {
  std::int64_t year = 0;
  friend bool operator==(const ReleasedBefore&, const ReleasedBefore&) = default;
};
struct ReleasedFrom {
  std::int64_t year = 0;
  friend bool operator==(const ReleasedFrom&, const ReleasedFrom&) = default;
};
using ReleasedFilter = std::variant<ReleasedWithin, ReleasedBefore, ReleasedFrom>;

/// The app must install on this version of the operating system.
struct OSRequirement {
  std::string atMost;
  friend bool operator==(const OSRequirement&, const OSRequirement&) = default;
};

/// What a search leaves out. The fields are the keys of a saved search's filters.
struct AppFilters {
  PriceFilter price = PriceFilter::any;
  std::optional<double> maxPrice;   ///< in the storefront's currency
  double minRating = 0;             ///< 0 is off
  std::int64_t minRatingCount = 0;  ///< below 1 is off
  UpdatedFilter updatedWithin = UpdatedFilter::any;
  SizeFilter maxSize = SizeFilter::any;
  std::optional<std::string> genre;  ///< as Apple names the category
  PurchaseFilter purchases = PurchaseFilter::any;
  std::optional<OSRequirement> runsOn;
  ArchitectureFilter architecture = ArchitectureFilter::any;
  std::optional<ReleasedFilter> released;
  bool hideOwned = false;

  friend bool operator==(const AppFilters&, const AppFilters&) = default;
};

enum class SortOrder {
  relevance,
  priceAscending,
  priceDescending,
  rating,
  popularity,
  recentlyUpdated,
  newest,
  name,
};

// Raw texts: what a saved search's JSON holds.

inline constexpr EnumTable<PriceFilter, 3> kPriceFilterTexts{{
    {PriceFilter::any, "any"},
    {PriceFilter::free, "free"},
    {PriceFilter::paid, "paid"},
}};
inline constexpr EnumTable<UpdatedFilter, 5> kUpdatedFilterTexts{{
    {UpdatedFilter::any, "any"},
    {UpdatedFilter::month, "month"},
    {UpdatedFilter::sixMonths, "sixMonths"},
    {UpdatedFilter::year, "year"},
    {UpdatedFilter::twoYears, "twoYears"},
}};
inline constexpr EnumTable<SizeFilter, 4> kSizeFilterTexts{{
    {SizeFilter::any, "any"},
    {SizeFilter::under100MB, "under100MB"},
    {SizeFilter::under500MB, "under500MB"},
    {SizeFilter::under2GB, "under2GB"},
}};
inline constexpr EnumTable<PurchaseFilter, 7> kPurchaseFilterTexts{{
    {PurchaseFilter::any, "any"},
    {PurchaseFilter::hasSubscription, "hasSubscription"},
    {PurchaseFilter::noSubscription, "noSubscription"},
    {PurchaseFilter::hasInAppPurchases, "hasInAppPurchases"},
    {PurchaseFilter::noInAppPurchases, "noInAppPurchases"},
    {PurchaseFilter::buyOutright, "buyOutright"},
    {PurchaseFilter::subscriptionOnly, "subscriptionOnly"},
}};
inline constexpr EnumTable<ArchitectureFilter, 3> kArchitectureFilterTexts{{
    {ArchitectureFilter::any, "any"},
    {ArchitectureFilter::appleSilicon, "appleSilicon"},
    {ArchitectureFilter::needsRosetta, "needsRosetta"},
}};
inline constexpr EnumTable<SortOrder, 8> kSortOrderTexts{{
    {SortOrder::relevance, "relevance"},
    {SortOrder::priceAscending, "priceAscending"},
    {SortOrder::priceDescending, "priceDescending"},
    {SortOrder::rating, "rating"},
    {SortOrder::popularity, "popularity"},
    {SortOrder::recentlyUpdated, "recentlyUpdated"},
    {SortOrder::newest, "newest"},
    {SortOrder::name, "name"},
}};

// Words: what the command line takes and prints. The empty word of "any" is never typed.

inline constexpr EnumTable<UpdatedFilter, 5> kUpdatedFilterWords{{
    {UpdatedFilter::any, ""},
    {UpdatedFilter::month, "month"},
    {UpdatedFilter::sixMonths, "6months"},
    {UpdatedFilter::year, "year"},
    {UpdatedFilter::twoYears, "2years"},
}};
inline constexpr EnumTable<SizeFilter, 4> kSizeFilterWords{{
    {SizeFilter::any, ""},
    {SizeFilter::under100MB, "100mb"},
    {SizeFilter::under500MB, "500mb"},
    {SizeFilter::under2GB, "2gb"},
}};
inline constexpr EnumTable<PurchaseFilter, 7> kPurchaseFilterWords{{
    {PurchaseFilter::any, ""},
    {PurchaseFilter::hasSubscription, "has-subscription"},
    {PurchaseFilter::noSubscription, "no-subscription"},
    {PurchaseFilter::hasInAppPurchases, "has-iap"},
    {PurchaseFilter::noInAppPurchases, "no-iap"},
    {PurchaseFilter::buyOutright, "buy-outright"},
    {PurchaseFilter::subscriptionOnly, "subscription-only"},
}};
inline constexpr EnumTable<ArchitectureFilter, 3> kArchitectureFilterWords{{
    {ArchitectureFilter::any, ""},
    {ArchitectureFilter::appleSilicon, "apple-silicon"},
    {ArchitectureFilter::needsRosetta, "needs-rosetta"},
}};
inline constexpr EnumTable<SortOrder, 8> kSortOrderWords{{
    {SortOrder::relevance, "relevance"},
    {SortOrder::priceAscending, "price-low"},
    {SortOrder::priceDescending, "price-high"},
    {SortOrder::rating, "rating"},
    {SortOrder::popularity, "popularity"},
    {SortOrder::recentlyUpdated, "updated"},
    {SortOrder::newest, "newest"},
    {SortOrder::name, "name"},
}};

static_assert(isComplete(kPriceFilterTexts, PriceFilter::paid));
static_assert(isComplete(kUpdatedFilterTexts, UpdatedFilter::twoYears));
static_assert(isComplete(kSizeFilterTexts, SizeFilter::under2GB));
static_assert(isComplete(kPurchaseFilterTexts, PurchaseFilter::subscriptionOnly));
static_assert(isComplete(kArchitectureFilterTexts, ArchitectureFilter::needsRosetta));
static_assert(isComplete(kSortOrderTexts, SortOrder::name));
static_assert(isComplete(kUpdatedFilterWords, UpdatedFilter::twoYears));
static_assert(isComplete(kSizeFilterWords, SizeFilter::under2GB));
static_assert(isComplete(kPurchaseFilterWords, PurchaseFilter::subscriptionOnly));
static_assert(isComplete(kArchitectureFilterWords, ArchitectureFilter::needsRosetta));
static_assert(isComplete(kSortOrderWords, SortOrder::name));

}  // namespace quillet
