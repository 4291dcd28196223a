// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/saved_query.h"

#include "analysis/filters_json.h"
#include "library/saved_searches.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

void nameStorefront(StoreQuery& query, const std::string& storefront) {
  if (!query.request.country) query.request.country = storefront;
}

}  // namespace

SavedQuery savedQueryOf(const SavedSearch& search) {
  SavedQuery saved{search.id, search.name, {}};
  SearchRequest& request = saved.query.request;
  request.query = search.query;
  request.platform = valueOf(kPlatformWords, search.platformRaw).value_or(Platform::mac);
  if (isTwoLetters(search.country)) request.country = search.country;
  request.filters = decodeFilters(search.filtersJSON).value_or(AppFilters());
  request.sort = valueOf(kSortOrderTexts, search.sortRaw).value_or(SortOrder::relevance);
  return saved;
}

std::vector<SavedQuery> savedQueries(SQLite::Database& database) {
  std::vector<SavedQuery> queries;
  for (const SavedSearch& search : savedSearches(database)) queries.push_back(savedQueryOf(search));
  return queries;
}

SavedSearch savedSearchOf(const SearchRequest& request, std::string name,
                          const std::string& storefront, Instant now) {
  SavedSearch search;
  search.name = std::move(name);
  search.query = request.query;
  search.platformRaw = textOf(kPlatformWords, request.platform);
  search.country = request.country.value_or(storefront);
  search.sortRaw = textOf(kSortOrderTexts, request.sort);
  search.filtersJSON = encodeFilters(request.filters);
  search.createdAt = now;
  return search;
}

bool isSameSearch(StoreQuery left, StoreQuery right, const std::string& storefront) {
  nameStorefront(left, storefront);
  nameStorefront(right, storefront);
  return left == right;
}

Place searchPlace(StoreQuery query, const std::string& storefront) {
  if (query.request.country == storefront) query.request.country.reset();
  Place place;
  place.section = SectionId::search;
  place.rows.sort = textOf(kSortOrderTexts, query.request.sort);
  place.what = std::move(query);
  return place;
}

}  // namespace quillet
