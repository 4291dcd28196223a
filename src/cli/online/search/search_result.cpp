// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search/search_result.h"

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "base/text.h"
#include "cli/filters_payload.h"
#include "cli/online/app/app_table.h"

namespace quillet {

namespace {

void writeQuery(JsonWriter& writer, const CLISearchPayload::Query& query) {
  writer.beginObject();
  writer.member("country", query.country);
  writer.key("filters");
  writeFilters(writer, query.filters);
  writer.member("limit", query.limit);
  writer.member("platform", textOf(kPlatformWords, query.platform));
  writer.member("scanned", query.scanned);
  writer.member("sort", textOf(kSortOrderTexts, query.sort));
  writer.member("term", query.term);
  writer.endObject();
}

std::string header(const CLISearchPayload& payload) {
  const CLISearchPayload::Query& query = payload.query;
  const std::size_t count = payload.results.size();
  const std::string found =
      count == 0 ? "No results" : fmt::format("{} result{}", count, count == 1 ? "" : "s");
  const std::string scanned = activeCount(query.filters) > 0
                                  ? fmt::format(", from {} scanned", query.scanned)
                                  : std::string();
  return fmt::format("{} for \"{}\" ({}, {}){}.", found, printable(query.term),
                     textOf(kPlatformWords, query.platform), query.country, scanned);
}

}  // namespace

std::string renderSearchJson(const CLISearchPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", payload.results.size());
    writer.key("query");
    writeQuery(writer, payload.query);
    writer.list("results", payload.results, writeSummary);
  });
}

std::string renderSearchText(const CLISearchPayload& payload, const LocaleFormats& formats,
                             const TextStyle& style) {
  std::string text = header(payload);
  if (payload.results.empty()) return text;
  std::vector<TableRow> rows;
  for (const CLIAppSummary& app : payload.results) rows.push_back(appCells(app, formats, style));
  text += "\n\n" + renderTable(appColumns(), rows, style);
  text.pop_back();  // the runner ends the last line
  return text;
}

}  // namespace quillet
