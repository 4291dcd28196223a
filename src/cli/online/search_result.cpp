// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search_result.h"

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "analysis/filter_words.h"
#include "base/text.h"
#include "cli/rating_text.h"
#include "cli/text_table.h"

namespace quillet {

namespace {

void writeQuery(JsonWriter& writer, const CLISearchPayload::Query& query) {
  auto words = activeFilterWords(query.filters);
  std::sort(words.begin(), words.end());
  writer.beginObject();
  writer.member("country", query.country);
  writer.key("filters");
  writer.beginObject();
  for (const auto& [name, value] : words) writer.member(name, value);
  writer.endObject();
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

std::string cellText(const std::optional<std::string>& text) {
  return printable(text.value_or(""));
}

TableRow rowOf(const CLIAppSummary& app, const LocaleFormats& formats, const TextStyle& style) {
  const std::string unknown = style.utf8 ? "—" : "-";
  return {std::to_string(app.trackId),
          printable(app.name),
          printable(app.formattedPrice.value_or(unknown)),
          ratingText(app.rating, app.ratingCount, RatingPlace::table, formats, style),
          app.lastUpdated ? formatDay(*app.lastUpdated) : unknown,
          cellText(app.genre),
          cellText(app.seller)};
}

const std::vector<TableColumn>& searchColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "ID", .ink = Ink::dim},
      {.heading = "Name", .ink = Ink::bold, .smallest = 26},
      {.heading = "Price", .align = Align::right, .ink = Ink::green},
      {.heading = "Rating", .ink = Ink::yellow, .leavesAs = 4},
      {.heading = "Updated", .leavesAs = 3},
      {.heading = "Category", .smallest = 12, .leavesAs = 2},
      {.heading = "Seller", .ink = Ink::dim, .smallest = 16, .leavesAs = 1},
  };
  return kColumns;
}

}  // namespace

std::string renderSearchJson(const CLISearchPayload& payload) {
  JsonWriter writer;
  writer.beginObject();
  writer.member("count", payload.results.size());
  writer.key("query");
  writeQuery(writer, payload.query);
  writer.key("results");
  writer.beginArray();
  for (const CLIAppSummary& app : payload.results) writeSummary(writer, app);
  writer.endArray();
  writer.endObject();
  return writer.take();
}

std::string renderSearchText(const CLISearchPayload& payload, const LocaleFormats& formats,
                             const TextStyle& style) {
  std::string text = inked(header(payload), Ink::plain, style);
  if (payload.results.empty()) return text;
  std::vector<TableRow> rows;
  for (const CLIAppSummary& app : payload.results) rows.push_back(rowOf(app, formats, style));
  text += "\n\n" + renderTable(searchColumns(), rows, style);
  text.pop_back();  // the runner ends the last line
  return text;
}

}  // namespace quillet
