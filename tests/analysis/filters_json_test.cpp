// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

AppFilters everyFilter(ReleasedFilter released) {
  return {.price = PriceFilter::paid,
          .maxPrice = 4.99,
          .minRating = 4.5,
          .minRatingCount = 100,
          .updatedWithin = UpdatedFilter::sixMonths,
          .maxSize = SizeFilter::under2GB,
          .genre = "Graphics & \"Design\"",
          .purchases = PurchaseFilter::noInAppPurchases,
          .runsOn = OSRequirement{"14.2"},
          .architecture = ArchitectureFilter::needsRosetta,
          .released = released,
          .hideOwned = true};
}

TEST(FiltersJson, whatIsWrittenIsReadBack) {
  for (const AppFilters& filters :
       {AppFilters{}, everyFilter(ReleasedBefore{2020}), everyFilter(ReleasedFrom{2023})})
    EXPECT_EQ(decodeFilters(encodeFilters(filters)), filters) << encodeFilters(filters);
}

TEST(FiltersJson, theStoredForm) {
  EXPECT_EQ(encodeFilters(everyFilter(ReleasedWithin{6})), R"({
  "architecture": "needsRosetta",
  "genre": "Graphics & \"Design\"",
  "hideOwned": true,
  "maxPrice": 4.99,
  "maxSize": "under2GB",
  "minRating": 4.5,
  "minRatingCount": 100,
  "price": "paid",
  "purchases": "noInAppPurchases",
  "released": {
    "within": {
      "months": 6
    }
  },
  "runsOn": {
    "atMost": {
      "_0": "14.2"
    }
  },
  "updatedWithin": "sixMonths"
})");
}

TEST(FiltersJson, formsOfOtherWriters) {
  const AppFilters none;
  AppFilters system;
  system.runsOn = OSRequirement{"14.2"};
  AppFilters rated;
  rated.minRating = 4;
  rated.minRatingCount = 5;
  const std::pair<const char*, AppFilters> rows[] = {
      {"{}", none},
      {R"({"price": null, "maxPrice": null, "hideOwned": null, "released": null})", none},
      {R"({"minRating": 4, "minRatingCount": 5.0})", rated},
      {R"({"runsOn": {"atMost": {"_0": "14.2"}}})", system},
      {R"({"runsOn": {"atMost": {"version": "14.2"}}})", system},
      {R"({"runsOn": {"atMost": "14.2"}})", system},
  };
  for (const auto& [json, filters] : rows) EXPECT_EQ(decodeFilters(json), filters) << json;
}

TEST(FiltersJson, refusesWhatItCannotBe) {
  const char* const rows[] = {
      "",
      "nonsense",
      R"({"price": "gratis"})",
      R"({"maxPrice": -0.01})",
      R"({"minRating": 5.1})",
      R"({"minRatingCount": 1.5})",
      R"({"hideOwned": "yes"})",
      R"({"released": {"within": {}}})",
      R"({"released": {"within": {"months": -1}}})",
      R"({"released": {"within": {"months": 6}, "before": {"year": 2020}}})",
      R"({"released": {"before": {"year": 10000}}})",
      R"({"released": {"after": {"year": 2020}}})",
      R"({"runsOn": "14.2"})",
      R"({"runsOn": {"atLeast": {"_0": "14.2"}}})",
      R"({"runsOn": {"atMost": {"_0": 14.2}}})",
  };
  for (const char* json : rows) EXPECT_EQ(decodeFilters(json), std::nullopt) << json;
}

}  // namespace
}  // namespace quillet
