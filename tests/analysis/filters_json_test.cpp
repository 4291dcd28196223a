// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"

#include <gtest/gtest.h>

#include "analysis/every_filter.h"
#include "support/flattened.h"

namespace quillet {
namespace {

TEST(FiltersJson, theStoredFormIsReadBack) {
  EXPECT_EQ(flattened(encodeFilters(everyFilter(ReleasedWithin{6}))),
            R"({"architecture": "needsRosetta","genre": "Graphics & \"Design\"",)"
            R"("hideOwned": true,"maxPrice": 4.99,"maxSize": "under2GB","minRating": 4,)"
            R"("minRatingCount": 100,"price": "paid","purchases": "noInAppPurchases",)"
            R"("released": {"within": {"months": 6}},"runsOn": {"atMost": {"_0": "14.2"}},)"
            R"("updatedWithin": "sixMonths"})");
  for (const ReleasedFilter& released : std::initializer_list<ReleasedFilter>{
           ReleasedWithin{6}, ReleasedBefore{2020}, ReleasedFrom{2023}}) {
    const AppFilters filters = everyFilter(released);
    EXPECT_EQ(decodeFilters(encodeFilters(filters)), filters) << encodeFilters(filters);
  }
}

TEST(FiltersJson, formsOfOtherWriters) {
  for (const char* json :
       {"{}", R"({"price": null, "maxPrice": null, "hideOwned": null, "released": null})"})
    EXPECT_EQ(decodeFilters(json), AppFilters{}) << json;
  for (const char* json :
       {R"({"runsOn": {"atMost": {"version": "14.2"}}})", R"({"runsOn": {"atMost": "14.2"}})"})
    EXPECT_EQ(decodeFilters(json), AppFilters{.runsOn = OSRequirement{"14.2"}}) << json;
  EXPECT_EQ(decodeFilters(R"({"minRating": 4, "minRatingCount": 5.0})"),
            (AppFilters{.minRating = 4, .minRatingCount = 5}));
}

TEST(FiltersJson, refusesWhatItCannotBe) {
  for (const char* json :
       {"", R"({"price": "gratis"})", R"({"maxPrice": -0.01})", R"({"minRating": 5.1})",
        R"({"minRatingCount": 1.5})", R"({"hideOwned": "yes"})", R"({"released": {"within": {}}})",
        R"({"released": {"within": {"months": -1}}})",
        R"({"released": {"within": {"months": 6}, "before": {"year": 2020}}})",
        R"({"released": {"before": {"year": 10000}}})",
        R"({"released": {"after": {"year": 2020}}})", R"({"runsOn": "14.2"})",
        R"({"runsOn": {"atLeast": {"_0": "14.2"}}})", R"({"runsOn": {"atMost": {"_0": 14.2}}})"}) {
    EXPECT_EQ(decodeFilters(json), std::nullopt) << json;
  }
}

}  // namespace
}  // namespace quillet
