// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/charts/charts_result.h"

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "cli/filters_payload.h"
#include "cli/online/app/app_table.h"

namespace quillet {

namespace {

void writeQuery(JsonWriter& writer, const CLIChartPayload::Query& query) {
  writer.beginObject();
  writer.member("chart", textOf(kChartTypeWords, query.chart));
  writer.member("country", query.country);
  writer.key("filters");
  writeFilters(writer, query.filters);
  if (query.genre != nullptr) writer.member("genre", query.genre->name);
  writer.member("genreId", query.genre != nullptr ? query.genre->id : kAllGenresId);
  writer.member("limit", query.limit);
  writer.member("platform", textOf(kPlatformWords, query.platform));
  writer.member("scanned", query.scanned);
  writer.member("sort", textOf(kSortOrderTexts, query.sort));
  writer.endObject();
}

void writeEntry(JsonWriter& writer, const CLIChartEntry& entry) {
  writer.beginObject();
  writer.key("app");
  writeSummary(writer, entry.app);
  if (entry.moved) {
    writer.member("change", entry.moved->change);
    writer.member("movement", textOf(kChartMovementWords, entry.moved->movement));
    writer.member("previousRank", entry.moved->previousRank);
  }
  writer.member("rank", entry.rank);
  writer.endObject();
}

std::string header(const CLIChartPayload& payload, const UtcOffsetAt& zone) {
  const CLIChartPayload::Query& query = payload.query;
  const std::size_t count = payload.results.size();
  std::string text(textOf(kChartTypeNames, query.chart));
  if (query.genre != nullptr) text += fmt::format(" in {}", query.genre->name);
  text += fmt::format(" ({}, {}): {} app{}", textOf(kPlatformWords, query.platform), query.country,
                      count, count == 1 ? "" : "s");
  if (activeCount(query.filters) > 0) text += fmt::format(", from {} scanned", query.scanned);
  text += '.';
  if (payload.movementSince) {
    text += fmt::format("\nMovement since {}, from Quillet's daily record of the top {}.",
                        formatDay(*payload.movementSince + zone(*payload.movementSince)),
                        kRecordedPlaces);
  }
  return text;
}

/// "▲3"; "+3" where there are no such signs.
std::string movementText(const CLIChartEntry& entry, const TextStyle& style) {
  if (!entry.moved) return {};
  const std::int64_t places = std::abs(entry.moved->change.value_or(0));
  switch (entry.moved->movement) {
    case ChartMovement::up: return fmt::format("{}{}", style.utf8 ? "▲" : "+", places);
    case ChartMovement::down: return fmt::format("{}{}", style.utf8 ? "▼" : "-", places);
    case ChartMovement::same: return style.utf8 ? "•" : "=";
    case ChartMovement::isNew: break;
  }
  return "new";
}

std::vector<TableColumn> columnsFor(const CLIChartPayload& payload) {
  std::vector<TableColumn> columns{{.heading = "Rank", .align = Align::right}};
  if (payload.movementSince) columns.push_back({.heading = "Moved", .leavesAs = 6});
  columns.insert(columns.end(), appColumns().begin(), appColumns().end());
  return columns;
}

TableRow rowOf(const CLIChartPayload& payload, const CLIChartEntry& entry,
               const LocaleFormats& formats, const TextStyle& style) {
  TableRow row{std::to_string(entry.rank)};
  if (payload.movementSince) row.push_back(movementText(entry, style));
  const TableRow cells = appCells(entry.app, formats, style);
  row.insert(row.end(), cells.begin(), cells.end());
  return row;
}

}  // namespace

std::string renderChartJson(const CLIChartPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", payload.results.size());
    writer.member("movementDepth", kRecordedPlaces);
    writer.member("movementSince", payload.movementSince);
    writer.key("query");
    writeQuery(writer, payload.query);
    writer.list("results", payload.results, writeEntry);
  });
}

std::string renderChartText(const CLIChartPayload& payload, const LocaleFormats& formats,
                            const UtcOffsetAt& zone, const TextStyle& style) {
  std::vector<TableRow> rows;
  for (const CLIChartEntry& entry : payload.results) {
    rows.push_back(rowOf(payload, entry, formats, style));
  }
  std::string text = header(payload, zone) + "\n\n" + renderTable(columnsFor(payload), rows, style);
  text.pop_back();  // the runner ends the last line
  return text;
}

}  // namespace quillet
