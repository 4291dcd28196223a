// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"
#include "library/saved_searches.h"
#include "sandbox/library/sample_lists.h"
#include "store/records/platform.h"

namespace quillet::sandbox {

namespace {

using std::chrono::days;

struct SearchSketch {
  std::string_view name;
  std::string_view query;
  Platform platform;
  std::string_view country;
  SortOrder sort;
  AppFilters filters;
};

std::vector<SearchSketch> searchSketches() {
  using enum SortOrder;
  const Platform mac = Platform::mac;
  const Platform iphone = Platform::iphone;
  return {
      {"Markdown, bought once",
       "markdown editor",
       mac,
       "us",
       rating,
       {.price = PriceFilter::paid,
        .maxPrice = 30,
        .minRating = 3.5,
        .updatedWithin = UpdatedFilter::year,
        .maxSize = SizeFilter::under100MB,
        .purchases = PurchaseFilter::noSubscription}},
      {"Fresh this month",
       "photo",
       mac,
       "us",
       recentlyUpdated,
       {.updatedWithin = UpdatedFilter::month,
        .architecture = ArchitectureFilter::appleSilicon,
        .released = ReleasedWithin{36}}},
      {"Not mine yet",
       "calendar",
       mac,
       "us",
       relevance,
       {.released = ReleasedFrom{2019}, .hideOwned = true}},
      {"Well liked",
       "notes",
       iphone,
       "us",
       popularity,
       {.minRating = 4,
        .minRatingCount = 100,
        .genre = "Productivity",
        .runsOn = OSRequirement{"17.0"}}},
      {"Classics", "solitaire", mac, "us", popularity, {.released = ReleasedBefore{2020}}},
  };
}

}  // namespace

void writeSavedSearches(WriteTransaction& library, const SampleStore& store) {
  int age = 200;
  for (const SearchSketch& sketch : searchSketches()) {
    SavedSearch search;
    search.name = sketch.name;
    search.query = sketch.query;
    search.platformRaw = textOf(kPlatformWords, sketch.platform);
    search.country = sketch.country;
    search.sortRaw = textOf(kSortOrderTexts, sketch.sort);
    search.filtersJSON = encodeFilters(sketch.filters);
    search.createdAt = store.today() - days(age);
    const RowId key = addSavedSearch(library, search);
    if (age % 3 != 0) markUsed(library, key, store.today() - days(age / 10));
    age -= 10;
  }
}

}  // namespace quillet::sandbox
