// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <algorithm>
#include <vector>

#include "analysis/rank_record.h"
#include "desktop/charts/rank_steps.h"
#include "desktop/page/figure_table.h"
#include "library/schema/chart_records.h"
#include "system/time_zone.h"

namespace quillet {

/// An app's places in one chart: recorded each day, or seen whenever its page was opened.
struct RankedChart {
  enum class Source { recorded, visits };

  QString title;  ///< "Top Free, Mac", "Top Paid Apps, Utilities"
  Source source = Source::recorded;
  std::vector<DailyRank> days;  ///< oldest first; one of them has a rank

  friend bool operator==(const RankedChart& left, const RankedChart& right) {
    const auto isSame = [](const DailyRank& a, const DailyRank& b) {
      return a.date == b.date && a.rank == b.rank;
    };
    return left.title == right.title && left.source == right.source &&
           std::ranges::equal(left.days, right.days, isSame);
  }
};

struct RankTerms {
  UtcOffsetAt zone;
  Instant now;
};

/// The recorded charts in which the app was placed, as they come, then those that visits saw.
[[nodiscard]] std::vector<RankedChart> rankedCharts(const std::vector<ChartRanks>& recorded,
                                                    const std::vector<RankPoint>& seen);

/// "Now #1, its best, since yesterday; placed on 60 of 60 recorded days."
[[nodiscard]] QString rankSentence(const RankedChart& chart, const RankTerms& terms);

/// As a chart from `from` until now.
[[nodiscard]] RankHistory rankDrawing(const RankedChart& chart, Instant from, Instant now);

/// Where it stands: chart, rank, movement since the day before, when that was seen.
[[nodiscard]] std::vector<FigureRow> standingRows(const std::vector<RankedChart>& charts,
                                                  const RankTerms& terms);

}  // namespace quillet
