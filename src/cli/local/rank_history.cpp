// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/rank_history.h"

#include <fmt/format.h>

#include "base/json_writer.h"
#include "cli/cli_error.h"
#include "cli/local/local_statement.h"
#include "cli/recorded_chart.h"
#include "cli/track_id_operand.h"
#include "library/schema/keyed_archive.h"

namespace quillet {

namespace {

CLIError nothingRecorded(const std::string& country) {
  return {CLIError::Code::notFound,
          fmt::format("Quillet has not recorded any charts for the {} storefront yet.", country),
          {"Quillet records the charts of its storefront once a day while it runs."}};
}

CLIError neverPlaced(const CLIOptions& options) {
  std::vector<std::string> suggestions;
  if (options.platform) suggestions.emplace_back("Leave out --platform to look at every chart.");
  return {CLIError::Code::notFound,
          fmt::format("Never in the top {} of any recorded chart for the {} storefront.",
                      kRecordedPlaces, options.country),
          std::move(suggestions)};
}

std::optional<std::string> cachedName(const CLILocalStore& store, std::int64_t trackId) {
  LocalStatement rows(
      store, fmt::format("SELECT ZNAME FROM ZCACHEDAPP WHERE ZTRACKID = {} LIMIT 1", trackId));
  auto name = rows.next() ? rows.text(0) : std::nullopt;
  return name && name->empty() ? std::nullopt : name;
}

std::string chartWord(const std::string& raw) {
  const auto chart = valueOf(kChartTypeTexts, raw);
  return chart ? std::string(textOf(kChartTypeWords, *chart)) : raw;
}

/// Absent where the row cannot be read, which counts as a day without a record.
std::optional<RecordedRanking> rankingOf(const LocalStatement& row) {
  auto platform = row.text(0);
  auto chart = row.text(1);
  const auto day = row.date(2);
  auto trackIds = unarchive<std::int64_t>(row.bytes(3));
  if (!platform || !chart || !day || !trackIds) return {};
  return RecordedRanking{*std::move(platform), *std::move(chart), *day, *std::move(trackIds)};
}

RankRecord readRankRecord(const CLILocalStore& store, std::int64_t trackId,
                          const std::string& country) {
  LocalStatement rows(store, fmt::format("SELECT ZPLATFORMRAW, ZCHARTRAW, ZDAY, ZTRACKIDS FROM "
                                         "ZCHARTSNAPSHOT\nWHERE ZCOUNTRY = '{}' AND ZGENREID = 0\n"
                                         "ORDER BY ZDAY",
                                         country));
  RankRecord record(trackId);
  while (rows.next()) {
    if (const auto ranking = rankingOf(rows)) record.add(*ranking);
  }
  return record;
}

std::vector<CLIObservedRank> readObserved(const CLILocalStore& store, std::int64_t trackId,
                                          const std::string& country) {
  LocalStatement rows(store,
                      fmt::format("SELECT ZCHART, ZGENRENAME, ZPOSITION, ZDATE FROM ZRANKPOINT\n"
                                  "WHERE ZTRACKID = {} AND ZCOUNTRY = '{}'\nORDER BY ZDATE",
                                  trackId, country));
  std::vector<CLIObservedRank> observed;
  while (rows.next()) {
    const auto position = rows.integer(2);
    if (position) observed.push_back({rows.text(0), rows.text(1), *position, rows.date(3)});
  }
  return observed;
}

void writeDaily(JsonWriter& writer, const ChartRanks& ranks) {
  writer.beginObject();
  writer.member("best", ranks.best);
  writer.member("chart", chartWord(ranks.chart));
  writer.member("daysPlaced", ranks.daysPlaced);
  writer.member("latest", ranks.latest);
  writer.member("platform", ranks.platform);
  writer.key("points");
  writer.beginArray();
  for (const DailyRank& point : ranks.days) {
    if (!point.rank) continue;
    writer.beginObject();
    writer.member("date", point.date);
    writer.member("rank", point.rank);
    writer.endObject();
  }
  writer.endArray();
  writer.member("recordedDays", ranks.days.size());
  writer.endObject();
}

void writeObserved(JsonWriter& writer, const CLIObservedRank& rank) {
  writer.beginObject();
  writer.member("chart", rank.chart);
  writer.member("date", rank.date);
  writer.member("genreName", rank.genreName);
  writer.member("position", rank.position);
  writer.endObject();
}

}  // namespace

CLIRankHistoryPayload readRankHistory(const LocalCall& call) {
  const CLIOptions& options = call.options;
  CLIRankHistoryPayload payload;
  payload.trackId = numericTrackId(options.operands, "rank-history needs one numeric track ID.",
                                   "quillet rank-history 1480068668 --json");
  payload.country = options.country;
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  const RankRecord record = readRankRecord(store, payload.trackId, options.country);
  if (record.charts() == 0) throw nothingRecorded(options.country);
  payload.recordedCharts = record.charts();
  payload.recordedFrom = record.first();
  payload.daily = record.placed(options.platform);
  payload.observed = readObserved(store, payload.trackId, options.country);
  if (payload.daily.empty() && payload.observed.empty()) throw neverPlaced(options);
  payload.name = cachedName(store, payload.trackId);
  return payload;
}

std::string renderRankHistoryJson(const CLIRankHistoryPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("country", payload.country);
    writer.list("daily", payload.daily, writeDaily);
    writer.member("depth", kRecordedPlaces);
    writer.member("name", payload.name);
    writer.list("observed", payload.observed, writeObserved);
    writer.member("recordedCharts", payload.recordedCharts);
    writer.member("recordedFrom", payload.recordedFrom);
    writer.member("trackId", payload.trackId);
  });
}

}  // namespace quillet
