// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/rank_rows.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// Whoever records no chart for longer knows nothing of the days between.
constexpr std::chrono::milliseconds kRecordHolds = 7 * 24h;

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

/// The library and the store write them differently.
QString chartName(const std::string& raw) {
  auto chart = valueOf(kChartTypeTexts, raw);
  if (!chart) chart = valueOf(kChartTypeWords, raw);
  if (!chart) return plainLine(raw);
  switch (*chart) {
    case ChartType::topFree: return tr("Top Free");
    case ChartType::topPaid: return tr("Top Paid");
    case ChartType::topGrossing: return tr("Top Grossing");
  }
  return {};
}

QString titleOf(const ChartRanks& ranks) {
  const auto platform = valueOf(kPlatformWords, ranks.platform);
  return tr("%1, %2").arg(chartName(ranks.chart),
                          platform ? platformText(*platform) : plainLine(ranks.platform));
}

QString titleOf(const RankPoint& point) {
  const QString chart = chartName(point.chart);
  return point.genreName ? tr("%1, %2").arg(chart, plainLine(*point.genreName)) : chart;
}

QString rankText(std::int64_t rank) { return u'#' + QString::number(rank); }

std::chrono::sys_days localDay(Instant when, const UtcOffsetAt& zone) {
  return std::chrono::floor<std::chrono::days>(when + zone(when));
}

/// "today", "yesterday", "3 Oct"
QString dayWord(Instant day, const RankTerms& terms) {
  const auto ago = localDay(terms.now, terms.zone) - localDay(day, terms.zone);
  if (ago == std::chrono::days(0)) return tr("today");
  if (ago == std::chrono::days(1)) return tr("yesterday");
  return dateText(day, terms.now, terms.zone);
}

QString onDay(Instant day, const RankTerms& terms) {
  const auto ago = localDay(terms.now, terms.zone) - localDay(day, terms.zone);
  return ago > std::chrono::days(1) ? tr("on %1").arg(dayWord(day, terms)) : dayWord(day, terms);
}

/// When and how often it was at its best.
struct Best {
  std::int64_t rank = 0;
  int spells = 0;
  Instant begin;  ///< of the latest spell
  Instant last;   ///< day of it
};

Best bestOf(const std::vector<DailyRank>& days) {
  Best best;
  for (const DailyRank& day : days) {
    if (day.rank && (best.rank == 0 || *day.rank < best.rank)) best.rank = *day.rank;
  }
  bool isBest = false;
  for (const DailyRank& day : days) {
    const bool wasBest = std::exchange(isBest, day.rank == best.rank);
    if (isBest && !wasBest) {
      ++best.spells;
      best.begin = day.date;
    }
    if (isBest) best.last = day.date;
  }
  return best;
}

const DailyRank& latestPlaced(const std::vector<DailyRank>& days) {
  const auto placed =
      std::find_if(days.rbegin(), days.rend(), [](const DailyRank& day) { return day.rank; });
  return *placed;
}

QString bestText(const std::vector<DailyRank>& days, const RankTerms& terms) {
  const Best best = bestOf(days);
  if (days.back().rank != best.rank)
    return tr("its best %1 %2").arg(rankText(best.rank), onDay(best.last, terms));
  if (best.spells == 1) return tr("its best, since %1").arg(dayWord(best.begin, terms));
  if (best.spells == 2) return tr("its best, reached twice");
  return tr("its best, reached %1 times").arg(QLocale().toString(best.spells));
}

QString countText(const RankedChart& chart) {
  const auto placed =
      std::ranges::count_if(chart.days, [](const DailyRank& day) { return day.rank.has_value(); });
  const QLocale locale;
  const auto all = static_cast<qlonglong>(chart.days.size());
  if (chart.source == RankedChart::Source::visits)
    return all == 1 ? tr("seen once") : tr("seen %1 times").arg(locale.toString(all));
  return (all == 1 ? tr("placed on %1 of %2 recorded day") : tr("placed on %1 of %2 recorded days"))
      .arg(locale.toString(static_cast<qlonglong>(placed)), locale.toString(all));
}

/// "Now #1", or what it was when it was last known.
QString latestText(const RankedChart& chart, const RankTerms& terms) {
  const DailyRank& last = chart.days.back();
  const DailyRank& placed = latestPlaced(chart.days);
  if (!last.rank)
    return tr("Not placed %1; last %2 %3")
        .arg(onDay(last.date, terms), rankText(*placed.rank), onDay(placed.date, terms));
  const auto ago = localDay(terms.now, terms.zone) - localDay(last.date, terms.zone);
  const bool isNow = chart.source == RankedChart::Source::recorded && ago <= std::chrono::days(1);
  return isNow ? tr("Now %1").arg(rankText(*last.rank))
               : tr("%1 when last seen, %2").arg(rankText(*last.rank), onDay(last.date, terms));
}

/// Against the recorded day before; nothing where there is none.
FigureCell movementOf(const std::vector<DailyRank>& days) {
  if (days.size() < 2 || !days.back().rank) return {QStringLiteral("—"), Token::tertiary};
  const auto& before = days[days.size() - 2].rank;
  if (!before) return {tr("NEW"), Token::fresh};
  const std::int64_t places = *before - *days.back().rank;
  if (places == 0) return {QStringLiteral("="), Token::tertiary};
  const bool isUp = places > 0;
  return {QString::number(std::abs(places)), isUp ? Token::down : Token::up,
          isUp ? FigureMark::up : FigureMark::down};
}

QString spokenMovement(const FigureCell& cell) {
  if (cell.mark == FigureMark::up) return tr("up %1").arg(cell.text);
  if (cell.mark == FigureMark::down) return tr("down %1").arg(cell.text);
  if (cell.ink == Token::fresh) return tr("new");
  return cell.text == u"=" ? tr("as before") : QString();
}

FigureRow standingRow(const RankedChart& chart, const RankTerms& terms) {
  const DailyRank& last = chart.days.back();
  const QString rank = last.rank ? rankText(*last.rank) : tr("not placed");
  const QString seen = dayWord(last.date, terms);
  const FigureCell movement = movementOf(chart.days);
  QStringList spoken{chart.title, rank, spokenMovement(movement), tr("seen %1").arg(seen)};
  spoken.removeAll(QString());
  return {{{chart.title, Token::text},
           {rank, last.rank ? Token::text : Token::tertiary},
           movement,
           {seen, Token::secondary}},
          spoken.join(QStringLiteral(", ")),
          {}};
}

}  // namespace

std::vector<RankedChart> rankedCharts(const std::vector<ChartRanks>& recorded,
                                      const std::vector<RankPoint>& seen) {
  std::vector<RankedChart> charts;
  for (const ChartRanks& ranks : recorded)
    charts.push_back({titleOf(ranks), RankedChart::Source::recorded, ranks.days});
  const auto first = charts.size();
  for (const RankPoint& point : seen) {
    const QString title = titleOf(point);
    const auto begin = charts.begin() + static_cast<std::ptrdiff_t>(first);
    auto chart = std::find_if(begin, charts.end(),
                              [&](const RankedChart& each) { return each.title == title; });
    if (chart == charts.end())
      chart = charts.insert(charts.end(), {title, RankedChart::Source::visits, {}});
    chart->days.push_back({point.date, point.position});
  }
  return charts;
}

QString rankSentence(const RankedChart& chart, const RankTerms& terms) {
  const QString latest = latestText(chart, terms);
  return tr("%1, %2; %3.").arg(latest, bestText(chart.days, terms), countText(chart));
}

RankHistory rankDrawing(const RankedChart& chart, Instant from, Instant now) {
  RankHistory history;
  history.from = from;
  history.now = std::max(now, chart.days.back().date);
  if (chart.source == RankedChart::Source::recorded) history.holds = kRecordHolds;
  for (const DailyRank& day : chart.days) history.days.push_back({day.date, day.rank});
  return history;
}

std::vector<FigureRow> standingRows(const std::vector<RankedChart>& charts,
                                    const RankTerms& terms) {
  std::vector<FigureRow> rows;
  for (const RankedChart& chart : charts) rows.push_back(standingRow(chart, terms));
  return rows;
}

}  // namespace quillet
