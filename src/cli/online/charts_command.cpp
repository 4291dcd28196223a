// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/charts_command.h"

#include <fmt/format.h>

#include "analysis/calendar.h"
#include "analysis/sorting.h"
#include "base/text.h"
#include "cli/limit_remark.h"
#include "cli/online/charts_result.h"
#include "cli/online/examination.h"

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
  if (query.chart == ChartType::topGrossing && query.platform == Platform::mac) {
    throw CLIError(CLIError::Code::validation,
                   "Apple publishes no Mac top grossing chart. Its Mac grossing feed returns the "
                   "iPhone chart, so Quillet does not offer it.",
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

/// Apps of a chart, and the rank of each.
struct ChartApps {
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> ranks;
};

ChartApps split(std::vector<RankedApp> ranked) {
  ChartApps chart;
  for (RankedApp& entry : ranked) {
    chart.apps.push_back(std::move(entry.app));
    chart.ranks.push_back(entry.rank);
  }
  return chart;
}

/// Adds those of `ranked` that pass to what is kept; returns how many it took.
Task<std::size_t> keepMatches(std::vector<RankedApp> ranked, ExaminationCriteria criteria,
                              ChartApps* kept, CatalogClient* catalog) {
  ChartApps chart = split(std::move(ranked));
  Examined examined = co_await examine(std::move(chart.apps), std::move(criteria), catalog);
  for (std::size_t i = 0; i < examined.apps.size(); ++i) {
    kept->apps.push_back(std::move(examined.apps[i]));
    kept->ranks.push_back(chart.ranks[examined.positions[i]]);
  }
  co_return examined.scanned;
}

/// How many places must be looked up whatever the filters say: fewer cannot fill `wanted`. Whole
/// lookups, for asking for 100 costs no more than asking for one.
std::size_t surelyLookedUp(std::size_t wanted) {
  return (wanted + kLookupBatch - 1) / kLookupBatch * kLookupBatch;
}

/// Looks up the chart's apps, no further than it takes to fill the limit, and keeps those that pass
/// the filters. `scanned` is counted up.
Task<ChartApps> readApps(CommandCall call, ChartQuery query, ExaminationCriteria criteria,
                         std::size_t* scanned) {
  call.services.progress.report("Reading the chart");
  const std::vector<std::int64_t> ids = co_await call.services.charts.ids(query, RequestContext{});
  const std::size_t limit = criteria.limit;
  // Without filters the first places are the answer, if the store knows their apps.
  const bool unfiltered = activeCount(criteria.filters) == 0;
  ChartPlaces places{0, unfiltered ? limit : surelyLookedUp(limit)};
  ChartApps kept;
  while (places.first < ids.size() && kept.apps.size() < limit) {
    call.services.progress.report(
        fmt::format("Looking up the chart's apps from place {}", places.first + 1));
    auto ranked = co_await call.services.charts.apps(query, ids, places, RequestContext{});
    criteria.limit = limit - kept.apps.size();
    const std::size_t examined =
        co_await keepMatches(std::move(ranked), criteria, &kept, &call.services.catalog);
    *scanned += examined;
    places = {places.first + places.count, surelyLookedUp(limit - kept.apps.size())};
  }
  co_return kept;
}

std::vector<CLIChartEntry> entriesOf(const ChartApps& chart, SortOrder sort,
                                     const LocaleFormats& formats) {
  const auto order = sortedPositions(
      chart.apps, sort,
      [&](std::string_view left, std::string_view right) { return formats.nameLess(left, right); });
  std::vector<CLIChartEntry> entries;
  for (const std::size_t i : order) {
    CLIChartEntry entry;
    entry.rank = chart.ranks[i];
    entry.app = summaryOf(chart.apps[i], formats);
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
  if (before) addMovement(payload, *before);
}

}  // namespace

Task<CommandResult> runCharts(CommandCall call) {
  const CommandServices& services = call.services;
  CLIChartPayload payload;
  payload.query = queryOf(call.options);
  call.options.filters = payload.query.filters;
  ExaminationCriteria criteria = criteriaFor(call.options, services);
  const ChartApps kept =
      co_await readApps(call, chartOf(payload.query), std::move(criteria), &payload.query.scanned);
  if (kept.apps.empty()) {
    throw CLIError(CLIError::Code::notFound, "Nothing in this chart matches.",
                   {"Try --chart top-free, or another --genre."});
  }
  payload.results = entriesOf(kept, payload.query.sort, services.formats);
  addRecordedMovement(payload, services);

  CommandResult result;
  if (payload.results.size() == static_cast<std::size_t>(payload.query.limit)) {
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
