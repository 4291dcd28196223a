// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_labels.h"

#include <gtest/gtest.h>

#include "analysis/filter_match.h"
#include "analysis/filter_words.h"

namespace quillet {
namespace {

AppFilters everyFilter() {
  return {.price = PriceFilter::free,
          .maxPrice = 5,
          .minRating = 4,
          .minRatingCount = 100,
          .updatedWithin = UpdatedFilter::twoYears,
          .maxSize = SizeFilter::under500MB,
          .genre = "Utilities",
          .purchases = PurchaseFilter::noSubscription,
          .runsOn = OSRequirement{"14.2"},
          .architecture = ArchitectureFilter::appleSilicon,
          .released = ReleasedFrom{2023},
          .hideOwned = true};
}

TEST(FilterWords, everyFilterInItsPlace) {
  using Words = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(activeFilterWords(everyFilter()), (Words{{"price", "free"},
                                                     {"maxPrice", "5.0"},
                                                     {"minRating", "4.0"},
                                                     {"minRatings", "100"},
                                                     {"updatedWithin", "2years"},
                                                     {"maxSize", "500mb"},
                                                     {"genre", "Utilities"},
                                                     {"purchases", "no-subscription"},
                                                     {"architecture", "apple-silicon"},
                                                     {"releasedAfter", "2023"},
                                                     {"runsOn", "14.2"},
                                                     {"hideOwned", "true"}}));
  EXPECT_EQ(activeFilterWords({.released = ReleasedWithin{6}}), (Words{{"releasedWithin", "6"}}));
  EXPECT_EQ(activeFilterWords({.released = ReleasedBefore{99}}), (Words{{"releasedBefore", "99"}}));
}

TEST(FilterWords, activeFiltersAreCounted) {
  EXPECT_EQ(activeCount(everyFilter()), 12);
  EXPECT_EQ(activeCount({.minRating = 0, .minRatingCount = 0}), 0);
  EXPECT_EQ(activeCount({.maxPrice = 0, .minRating = -1, .minRatingCount = -1, .genre = ""}), 2);
}

TEST(FilterLabels, releasedWithin) {
  const std::pair<std::int64_t, const char*> rows[] = {{1, "Last Month"},
                                                       {2, "Last 2 Months"},
                                                       {12, "Last Year"},
                                                       {13, "Last 13 Months"},
                                                       {24, "Last 2 Years"}};
  for (const auto& [months, label] : rows) EXPECT_EQ(releasedLabel(ReleasedWithin{months}), label);
}

TEST(FilterLabels, summary) {
  EXPECT_EQ(filterSummary({}), "");
  EXPECT_EQ(
      filterSummary(everyFilter()),
      "Free, Price up to 5, 4+ stars, 100+ ratings, Updated in the last 2 years, Up to 500 MB, "
      "Utilities, No subscription, Apple silicon, 2023 or later, Runs on 14.2, "
      "Not in My Apps");
}

}  // namespace
}  // namespace quillet
