// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/saved_searches.h"

#include "analysis/filter_labels.h"
#include "analysis/filters_json.h"
#include "analysis/search_command_line.h"
#include "base/columns.h"
#include "base/text.h"
#include "cli/filters_payload.h"
#include "cli/folding.h"
#include "cli/local/list_text.h"
#include "cli/local/local_statement.h"

namespace quillet {

namespace {

constexpr const char* kQuery =
    "SELECT ZNAME, ZQUERY, ZPLATFORMRAW, ZCOUNTRY, ZSORTRAW, ZFILTERSJSON, ZCREATEDAT, "
    "ZLASTUSEDAT\n"
    "FROM ZSAVEDSEARCH ORDER BY ZNAME COLLATE NOCASE";

/// A platform or an order that we do not know reads as what a search does without one.
std::string commandLineOf(const CLISavedSearch& search) {
  SearchRequest request;
  request.query = search.query;
  request.platform = valueOf(kPlatformWords, search.platform.value_or("")).value_or(Platform::mac);
  if (!search.country.value_or("").empty()) request.country = search.country;
  request.filters = search.filters;
  request.sort = valueOf(kSortOrderTexts, search.sort.value_or("")).value_or(SortOrder::relevance);
  return searchCommandLine(request);
}

CLISavedSearch searchOf(const LocalStatement& row, std::string name) {
  CLISavedSearch search;
  search.name = std::move(name);
  search.query = row.text(1).value_or("");
  search.platform = row.text(2);
  search.country = row.text(3);
  search.sort = row.text(4);
  search.filters = decodeFilters(row.text(5).value_or("")).value_or(AppFilters{});
  search.commandLine = commandLineOf(search);
  search.createdAt = row.date(6);
  search.lastUsedAt = row.date(7);
  return search;
}

void writeSearch(JsonWriter& writer, const CLISavedSearch& search) {
  writer.beginObject();
  writer.member("commandLine", search.commandLine);
  writer.member("country", search.country);
  writer.member("createdAt", search.createdAt);
  writer.key("filters");
  writeFilters(writer, search.filters);
  writer.member("lastUsedAt", search.lastUsedAt);
  writer.member("name", search.name);
  writer.member("platform", search.platform);
  writer.member("query", search.query);
  writer.member("sort", search.sort);
  writer.endObject();
}

/// Line feeds within quotes stay: without them it would be another search.
std::string blockOf(const CLISavedSearch& search, const TextStyle& style) {
  const std::string query = printable(search.query);
  const std::string filters = printable(filterSummary(search.filters));
  const std::string facts = printable(search.name) + "\n  Query    " +
                            (query.empty() ? "(no term)" : query) + "\n  Store    " +
                            storeText(search.country, search.platform) + "\n  Filters  " +
                            (filters.empty() ? "none" : filters);
  return folded(facts, style.width, columnCount) + "\n  Run it   " +
         printable(search.commandLine, LineFeeds::keep);
}

}  // namespace

CLISavedSearches readSavedSearches(const LocalCall& call) {
  refuseOperands("saved-searches", call.options);
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  CLISavedSearches searches;
  LocalStatement rows(store, kQuery);
  while (rows.next()) {
    if (auto name = rows.text(0)) searches.items.push_back(searchOf(rows, std::move(*name)));
  }
  searches.total = searches.items.size();
  return searches;
}

std::string renderSavedSearchesJson(const CLISavedSearches& searches) {
  return renderListJson(searches, writeSearch);
}

std::string renderSavedSearchesText(const CLISavedSearches& searches, const TextStyle& style) {
  if (searches.items.empty()) return "No saved searches yet.";
  std::vector<std::string> blocks;
  for (const CLISavedSearch& search : searches.items) blocks.push_back(blockOf(search, style));
  return join(blocks, "\n\n");
}

}  // namespace quillet
