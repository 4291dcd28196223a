// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_labels.h"

#include <gtest/gtest.h>

#include "analysis/every_filter.h"
#include "analysis/filter_match.h"
#include "analysis/filter_words.h"

namespace quillet {
namespace {

std::string words(const AppFilters& filters) {
  std::string text;
  for (const auto& [key, value] : activeFilterWords(filters)) text += key + '=' + value + ';';
  return text;
}

TEST(FilterWords, everyFilterInItsPlace) {
  EXPECT_EQ(words(everyFilter(ReleasedFrom{2023})),
            "price=paid;maxPrice=4.99;minRating=4.0;minRatings=100;updatedWithin=6months;"
            "maxSize=2gb;genre=Graphics & \"Design\";purchases=no-iap;"
            "architecture=needs-rosetta;releasedAfter=2023;runsOn=14.2;hideOwned=true;");
  EXPECT_EQ(words({.released = ReleasedWithin{6}}), "releasedWithin=6;");
  EXPECT_EQ(words({.released = ReleasedBefore{99}}), "releasedBefore=99;");
  EXPECT_EQ(activeCount({.maxPrice = 0, .minRating = -1, .minRatingCount = 0, .genre = ""}), 2);
}

TEST(FilterLabels, inASummary) {
  EXPECT_EQ(filterSummary(everyFilter(ReleasedFrom{2023})),
            "Paid, Price up to 4.99, 4+ stars, 100+ ratings, Updated in the last 6 months, "
            "Up to 2 GB, Graphics & \"Design\", No in-app purchases, Needs Rosetta, 2023 or later, "
            "Runs on 14.2, Not in My Apps");
  const std::pair<int, const char*> rows[] = {
      {1, "Last Month"}, {2, "Last 2 Months"}, {12, "Last Year"}, {24, "Last 2 Years"}};
  for (const auto& [months, label] : rows)
    EXPECT_EQ(filterSummary({.released = ReleasedWithin{months}}), label);
}

TEST(FilterLabels, takeOutTheirFilterAlone) {
  const AppFilters every = everyFilter(ReleasedBefore{2020});
  ASSERT_EQ(setFilters(every).size(), 12U);
  for (const SetFilter& each : setFilters(every)) {
    EXPECT_EQ(activeCount(each.others), 11) << each.label;
    for (const SetFilter& other : setFilters(each.others)) EXPECT_NE(other.label, each.label);
    const AppFilters alone = withoutAll(every, each.others);
    EXPECT_EQ(filterSummary(alone), each.label);
    EXPECT_EQ(withAll(each.others, alone), every);
    EXPECT_TRUE(holdsAll(every, alone) && !holdsAll(each.others, alone)) << each.label;
  }
}

}  // namespace
}  // namespace quillet
