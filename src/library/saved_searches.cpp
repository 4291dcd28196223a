// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/saved_searches.h"

#include "analysis/filters_json.h"
#include "library/row_sets.h"

namespace quillet {

std::vector<SavedSearch> savedSearches(SQLite::Database& database) {
  return selectRows<SavedSearch>(database, "ORDER BY ZNAME COLLATE NOCASE");
}

SearchRequest requestOf(const SavedSearch& search) {
  SearchRequest request;
  request.query = search.query;
  request.platform = valueOf(kPlatformWords, search.platformRaw).value_or(request.platform);
  if (!search.country.empty()) request.country = search.country;
  request.filters = decodeFilters(search.filtersJSON).value_or(AppFilters{});
  request.sort = valueOf(kSortOrderTexts, search.sortRaw).value_or(request.sort);
  return request;
}

RowId addSavedSearch(WriteTransaction& transaction, const SavedSearch& search) {
  const RowId key = insertRow(transaction.database, search);
  transaction.changes.savedSearches.insert(key);
  return key;
}

std::optional<SavedSearch> editSavedSearch(WriteTransaction& transaction,
                                           const SavedSearch& search) {
  const auto before = selectRow<SavedSearch>(transaction.database, kOfKey, search.id);
  if (!before) return std::nullopt;
  SavedSearch row = search;
  row.createdAt = before->createdAt;
  row.lastUsedAt = before->lastUsedAt;
  updateRow(transaction.database, row);
  transaction.changes.savedSearches.insert(row.id);
  return before;
}

void markUsed(WriteTransaction& transaction, RowId search, Instant when) {
  SQLite::Statement statement(transaction.database,
                              "UPDATE ZSAVEDSEARCH SET ZLASTUSEDAT = ?2 WHERE Z_PK = ?1");
  if (runOnce(statement, search, when) > 0) transaction.changes.savedSearches.insert(search);
}

RemovedRows removeSavedSearches(WriteTransaction& transaction, const std::vector<RowId>& keys) {
  return removeRows(transaction, &RemovedRows::savedSearches,
                    rowsOfKeys<SavedSearch>(transaction.database, keys));
}

}  // namespace quillet
