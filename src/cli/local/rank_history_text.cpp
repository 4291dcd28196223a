// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/rank_history_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/text.h"
#include "cli/local/counted.h"
#include "cli/recorded_chart.h"

namespace quillet {

namespace {

constexpr std::size_t kMostPoints = 7;
// Days in the line of ranks: with its dates it fits a terminal of 80 columns.
constexpr std::size_t kLongestLine = 50;
constexpr std::size_t kShortestLine = 7;
constexpr std::size_t kBesideLine = 28;  // the margin, a gap, "2026-10-03 to 2026-11-21"
constexpr std::size_t kRankWidth = 3;    // "#50"

using Levels = std::array<std::string_view, 8>;
constexpr Levels kBlocks{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr Levels kSigns{"_", ".", "-", "~", "=", "+", "*", "#"};

std::string chartName(const ChartRanks& ranks) {
  const auto chart = valueOf(kChartTypeTexts, ranks.chart);
  return chart ? std::string(textOf(kChartTypeNames, *chart)) : printable(ranks.chart);
}

std::string dayText(Instant instant, const UtcOffsetAt& zone) {
  return formatDay(instant + zone(instant));
}

std::string rankText(std::int64_t rank) {
  return fmt::format("{:>{}}", fmt::format("#{}", rank), kRankWidth);
}

/// A sign for each day, higher for a better rank, blank without one. The shown days' best and
/// worst ranks are the highest and the lowest sign.
std::string sparkline(std::span<const DailyRank> days, const TextStyle& style) {
  std::vector<std::int64_t> ranks;
  for (const DailyRank& day : days) {
    if (day.rank) ranks.push_back(*day.rank);
  }
  if (ranks.empty()) return {};
  const auto [best, worst] = std::minmax_element(ranks.begin(), ranks.end());
  const std::int64_t spread = std::max<std::int64_t>(*worst - *best, 1);
  const Levels& levels = style.utf8 ? kBlocks : kSigns;
  std::string line;
  for (const DailyRank& day : days) {
    if (!day.rank) {
      line += ' ';
    } else {
      const auto steps = static_cast<std::int64_t>(levels.size() - 1);
      line += levels[static_cast<std::size_t>((*worst - *day.rank) * steps / spread)];
    }
  }
  return line;
}

std::size_t daysDrawn(const TextStyle& style) {
  if (style.width == 0) return kLongestLine;
  const std::size_t room = style.width - std::min(style.width, kBesideLine);
  return std::clamp(room, kShortestLine, kLongestLine);
}

std::string recordedText(const CLIRankHistoryPayload& payload, const UtcOffsetAt& zone) {
  const std::string record =
      fmt::format("{} recorded for the {} storefront since {}, the top {} of each.",
                  counted(payload.recordedCharts, "chart"), payload.country,
                  dayText(payload.recordedFrom, zone), kRecordedPlaces);
  if (!payload.daily.empty()) return record;
  return record + fmt::format("\nNever in the top {} of any recorded chart for the {} storefront.",
                              kRecordedPlaces, payload.country);
}

std::string chartText(const ChartRanks& ranks, const UtcOffsetAt& zone, const TextStyle& style) {
  const std::span<const DailyRank> days(ranks.days);
  std::string text =
      fmt::format("{}, {}: latest #{}, best #{}, placed on {} of {}", chartName(ranks),
                  printable(ranks.platform), ranks.latest, ranks.best, ranks.daysPlaced,
                  counted(days.size(), "recorded day"));
  const auto drawn = days.last(std::min(days.size(), daysDrawn(style)));
  const std::string line = sparkline(drawn, style);
  if (drawn.size() > 1 && !line.empty()) {
    text += fmt::format("\n  {}  {} to {}", line, dayText(drawn.front().date, zone),
                        dayText(drawn.back().date, zone));
  }
  return text;
}

void addPoints(std::vector<std::string>& lines, const ChartRanks& ranks, const UtcOffsetAt& zone) {
  std::vector<DailyRank> placed;
  std::copy_if(ranks.days.begin(), ranks.days.end(), std::back_inserter(placed),
               [](const DailyRank& day) { return day.rank.has_value(); });
  const std::size_t shown = std::min(placed.size(), kMostPoints);
  for (std::size_t i = 0; i < shown; ++i) {
    const DailyRank& point = placed[placed.size() - 1 - i];
    lines.push_back(fmt::format("  {}  {}", dayText(point.date, zone), rankText(*point.rank)));
  }
  const std::size_t left = placed.size() - shown;
  if (left > 0) lines.push_back(fmt::format("  ({} earlier days in --json)", left));
}

std::string observedText(const CLIObservedRank& rank, const UtcOffsetAt& zone) {
  const std::string day = rank.date ? dayText(*rank.date, zone) : "";
  const std::string genre = rank.genreName ? printable(*rank.genreName) : "All categories";
  const std::string chart = shown(rank.chart);
  return fmt::format("  {:10}  {}  {}{}", day, rankText(rank.position), genre,
                     chart.empty() ? "" : " (" + chart + ")");
}

void addObserved(std::vector<std::string>& lines, const CLIRankHistoryPayload& payload,
                 const UtcOffsetAt& zone) {
  if (payload.observed.empty()) return;
  lines.emplace_back();
  lines.emplace_back("Category ranks, seen when the app page was opened:");
  const std::size_t shown = std::min(payload.observed.size(), kMostPoints);
  for (std::size_t i = 0; i < shown; ++i) {
    lines.push_back(observedText(payload.observed[payload.observed.size() - 1 - i], zone));
  }
  const std::size_t left = payload.observed.size() - shown;
  if (left > 0) lines.push_back(fmt::format("  ({} earlier in --json)", left));
}

}  // namespace

std::string renderRankHistoryText(const CLIRankHistoryPayload& payload, const UtcOffsetAt& zone,
                                  const TextStyle& style) {
  const std::string name = payload.name ? printable(*payload.name) : "App";
  std::vector<std::string> lines{fmt::format("{} ({})", name, payload.trackId),
                                 recordedText(payload, zone)};
  for (const ChartRanks& ranks : payload.daily) {
    lines.emplace_back();
    lines.push_back(chartText(ranks, zone, style));
    addPoints(lines, ranks, zone);
  }
  addObserved(lines, payload, zone);
  return join(lines, "\n");
}

std::string renderRankHistory(const CLIRankHistoryPayload& payload, OutputForm form,
                              const UtcOffsetAt& zone, const TextStyle& style) {
  return form == OutputForm::json ? renderRankHistoryJson(payload)
                                  : renderRankHistoryText(payload, zone, style);
}

}  // namespace quillet
