// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "analysis/calendar.h"
#include "analysis/sorting.h"
#include "base/text.h"
#include "cli/limit_remark.h"
#include "cli/online/charts/charts_result.h"
#include "cli/online/command_handlers.h"
#include "cli/online/search/examination_criteria.h"
#include "queries/chart_reading.h"

namespace quillet {

namespace {

CLIError unknownGenre(std::string_view text) {
  std::vector<std::string> names;
  for (const AppGenre& genre : kAppGenres) names.emplace_back(genre.name);
  std::vector<std::string> suggestions{"--genre takes " + join(names, ", ")};
  if (const AppGenre* nearest = nearestGenre(text)) {
    suggestions.insert(suggestions.begin(), "--genre " + shellQuoted(nearest->name));
  }
  return {CLIError::Code::validation, fmt::format("Unknown category '{}' for --genre.", text),
          std::move(suggestions)};
}

/// Throws CLIError for what no request can answer.
CLIChartPayload::Query queryOf(const CLIOptions& options) {
  if (!options.operands.empty()) {
    throw CLIError(CLIError::Code::validation,
                   "charts takes no arguments; pick a category with --genre.",
                   {"quillet charts --genre Productivity --json"});
  }
  CLIChartPayload::Query query;
  query.chart = options.chart.value_or(ChartType::topFree);
  query.platform = options.platform.value_or(Platform::mac);
  if (!isPublished(query.chart, query.platform)) {
    throw CLIError(CLIError::Code::validation, std::string(kNoMacGrossing),
                   {"quillet charts --chart top-grossing --platform iphone"});
  }
  query.country = options.country;
  query.limit = options.limit;
  query.sort = options.sort.value_or(SortOrder::relevance);
  query.filters = options.filters;
  // Here a category names the chart: its apps need not have it as their first one.
  query.filters.genre.reset();
  if (const std::string name(trimmed(options.filters.genre.value_or(""))); !name.empty()) {
    query.genre = findGenre(name);
    if (query.genre == nullptr) throw unknownGenre(name);
  }
  return query;
}

ChartQuery chartOf(const CLIChartPayload::Query& query) {
  ChartQuery chart{query.chart, query.platform, query.country, {}};
  if (query.genre != nullptr) chart.genreId = query.genre->id;
  return chart;
}

std::vector<CLIChartEntry> entriesOf(ChartReading chart, SortOrder sort,
                                     const LocaleFormats& formats) {
  const auto order = sortedPositions(
      chart.apps, sort,
      [&](std::string_view left, std::string_view right) { return formats.nameLess(left, right); });
  std::vector<CLIChartEntry> entries;
  for (const std::size_t i : order) {
    CLIChartEntry entry;
    entry.rank = chart.ranks[i];
    entry.app = summaryOf(std::move(chart.apps[i]), formats);
    entries.push_back(std::move(entry));
  }
  return entries;
}

/// The library records the charts of the whole store alone.
void addRecordedMovement(CLIChartPayload& payload, const CommandServices& services) {
  const CLIChartPayload::Query& query = payload.query;
  if (query.genre != nullptr) return;
  const Instant today = startOfDay(services.clock.now(), services.timeZone);
  const auto before = services.recordedChart({query.chart, query.platform, query.country, today});
  if (!before) return;
  payload.movementSince = before->day;
  const EarlierChart earlier(before->trackIds);
  for (CLIChartEntry& entry : payload.results) {
    entry.moved = earlier.changeOf(entry.app.trackId, entry.rank);
  }
}

}  // namespace

Task<CommandResult> runCharts(CommandCall call) {
  const CommandServices& services = call.services;
  CLIChartPayload payload;
  payload.query = queryOf(call.options);
  call.options.filters = payload.query.filters;
  ExaminationCriteria criteria = criteriaFor(call.options, services);
  ChartReading chart = co_await readChart(chartOf(payload.query), std::move(criteria),
                                          services.queries(), call.question(), RowWatch{});
  if (chart.apps.empty()) {
    throw CLIError(CLIError::Code::notFound, "Nothing in this chart matches.",
                   {"Try --chart top-free, or another --genre."});
  }
  payload.query.scanned = chart.scanned;
  payload.results = entriesOf(std::move(chart), payload.query.sort, services.formats);
  addRecordedMovement(payload, services);

  CommandResult result;
  if (payload.results.size() == payload.query.limit) {
    result.remark = limitRemark(
        {.limit = payload.query.limit,
         .more = MoreMatches::perhaps,
         .sortedFrom = payload.query.sort == SortOrder::relevance ? "" : "the chart's"});
  }
  result.text = call.form == OutputForm::json
                    ? renderChartJson(payload)
                    : renderChartText(payload, services.formats, services.timeZone, call.style);
  co_return result;
}

}  // namespace quillet
