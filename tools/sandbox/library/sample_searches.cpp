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
  const Platform ipad = Platform::ipad;
  return {
      {"Free note takers", "notes", iphone, "us", popularity, {.price = PriceFilter::free}},
      {"Markdown, bought once",
       "markdown editor",
       mac,
       "us",
       rating,
       {.price = PriceFilter::paid,
        .minRating = 4,
        .updatedWithin = UpdatedFilter::year,
        .purchases = PurchaseFilter::noSubscription}},
      {"Under five euros", "photo", mac, "de", priceAscending, {.maxPrice = 5}},
      {"Well liked", "timer", iphone, "us", popularity, {.minRating = 4.5, .minRatingCount = 500}},
      {"Fresh this month",
       "writer",
       mac,
       "us",
       recentlyUpdated,
       {.updatedWithin = UpdatedFilter::month}},
      {"Small tools", "menu bar", mac, "us", name, {.maxSize = SizeFilter::under100MB}},
      {"Games for the old iPad",
       "puzzle",
       ipad,
       "us",
       newest,
       {.genre = "Games", .runsOn = OSRequirement{"15.0"}}},
      {"Still on Rosetta",
       "scanner",
       mac,
       "us",
       relevance,
       {.architecture = ArchitectureFilter::needsRosetta}},
      {"Made for Apple silicon",
       "draw",
       mac,
       "us",
       rating,
       {.purchases = PurchaseFilter::buyOutright,
        .architecture = ArchitectureFilter::appleSilicon}},
      {"New since spring", "habit", iphone, "us", newest, {.released = ReleasedWithin{8}}},
      {"Classics", "solitaire", mac, "us", popularity, {.released = ReleasedBefore{2020}}},
      {"From 2023 on", "budget", iphone, "gb", priceDescending, {.released = ReleasedFrom{2023}}},
      {"Not mine yet", "calendar", mac, "us", relevance, {.hideOwned = true}},
      {"日本語のメモ", "メモ", iphone, "jp", relevance, {}},
      {"\"Quotes\" & $money", "it's \"quoted\" $HOME", mac, "us", relevance, {}},
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
