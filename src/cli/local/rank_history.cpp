// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/rank_history.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

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

/// The platforms and charts in the order of their enumerations, unknown ones last.
template <typename Table>
std::size_t placeIn(const Table& table, std::string_view text) {
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.text == text; });
  return static_cast<std::size_t>(found - table.begin());
}

void addDay(CLIDailyRanks& ranks, Instant day, const std::vector<std::int64_t>& trackIds,
            std::int64_t trackId) {
  CLIRankPoint& point = ranks.days.emplace_back(CLIRankPoint{day, {}});
  const auto found = std::find(trackIds.begin(), trackIds.end(), trackId);
  if (found == trackIds.end()) return;
  const std::int64_t rank = found - trackIds.begin() + 1;
  point.rank = ranks.latest = rank;
  ranks.best = ranks.daysPlaced == 0 ? rank : std::min(ranks.best, rank);
  ++ranks.daysPlaced;
}

std::string chartWord(const std::string& raw) {
  const auto chart = valueOf(kChartTypeTexts, raw);
  return chart ? std::string(textOf(kChartTypeWords, *chart)) : raw;
}

/// Every recorded chart with all its days, whether or not the app was placed.
class DailyRecord {
 public:
  explicit DailyRecord(std::int64_t trackId) : trackId_(trackId) {}

  /// A row that cannot be read counts as a day without a record.
  void add(const LocalStatement& row) {
    const auto platform = row.text(0);
    const auto chart = row.text(1);
    const auto day = row.date(2);
    const auto trackIds = unarchive<std::int64_t>(row.bytes(3));
    if (!platform || !chart || !day || !trackIds) return;
    if (charts_.empty()) first_ = *day;
    CLIDailyRanks& ranks = charts_[{placeIn(kPlatformWords, *platform), *platform,
                                    placeIn(kChartTypeTexts, *chart), *chart}];
    ranks.platform = *platform;
    ranks.chart = chartWord(*chart);
    addDay(ranks, *day, *trackIds, trackId_);
  }

  [[nodiscard]] std::size_t charts() const { return charts_.size(); }
  [[nodiscard]] Instant first() const { return first_; }

  /// Those of a platform, where one is named, in which the app was placed.
  [[nodiscard]] std::vector<CLIDailyRanks> placed(std::optional<Platform> platform) const {
    std::vector<CLIDailyRanks> result;
    for (const auto& [key, ranks] : charts_) {
      const bool isAskedFor = !platform || ranks.platform == textOf(kPlatformWords, *platform);
      if (isAskedFor && ranks.daysPlaced > 0) result.push_back(ranks);
    }
    return result;
  }

 private:
  using Key = std::tuple<std::size_t, std::string, std::size_t, std::string>;

  std::int64_t trackId_;
  Instant first_;
  std::map<Key, CLIDailyRanks> charts_;
};

DailyRecord readDailyRecord(const CLILocalStore& store, std::int64_t trackId,
                            const std::string& country) {
  LocalStatement rows(store, fmt::format("SELECT ZPLATFORMRAW, ZCHARTRAW, ZDAY, ZTRACKIDS FROM "
                                         "ZCHARTSNAPSHOT\nWHERE ZCOUNTRY = '{}' AND ZGENREID = 0\n"
                                         "ORDER BY ZDAY",
                                         country));
  DailyRecord record(trackId);
  while (rows.next()) record.add(rows);
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

void writeDaily(JsonWriter& writer, const CLIDailyRanks& ranks) {
  writer.beginObject();
  writer.member("best", ranks.best);
  writer.member("chart", ranks.chart);
  writer.member("daysPlaced", ranks.daysPlaced);
  writer.member("latest", ranks.latest);
  writer.member("platform", ranks.platform);
  writer.key("points");
  writer.beginArray();
  for (const CLIRankPoint& point : ranks.days) {
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
  const DailyRecord record = readDailyRecord(store, payload.trackId, options.country);
  if (record.charts() == 0) throw nothingRecorded(options.country);
  payload.recordedCharts = record.charts();
  payload.recordedFrom = record.first();
  payload.daily = record.placed(options.platform);
  payload.observed = readObserved(store, payload.trackId, options.country);
  if (payload.daily.empty() && payload.observed.empty()) throw neverPlaced(options);
  payload.name = cachedName(store, payload.trackId);
  return payload;
}

bool lacksRankedName(const LocalCall& call) {
  try {
    return !readRankHistory(call).name;
  } catch (const CLIError&) {
    return false;
  }
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
