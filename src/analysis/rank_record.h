// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/dates.h"
#include "store/records/platform.h"

namespace quillet {

/// The order of a chart on a recorded day.
struct RecordedRanking {
  std::string platform;  ///< a platform's word, or one that this build does not know
  std::string chart;     ///< a chart's stored text likewise
  Instant day;
  std::vector<std::int64_t> trackIds;
};

/// A day on which a chart was recorded, and an app's place in it.
struct DailyRank {
  Instant date;
  std::optional<std::int64_t> rank;  ///< absent where the app was not placed
};

/// Where an app stood in one chart.
struct ChartRanks {
  std::string chart;
  std::string platform;
  std::size_t daysPlaced = 0;
  std::int64_t best = 0;        ///< the smallest rank; 0 where the app was never placed, as below
  std::int64_t latest = 0;      ///< on the last day with a place
  std::vector<DailyRank> days;  ///< every recorded day, by date
};

/// Where one app stood in every recorded chart, whether or not it was placed.
class RankRecord {
 public:
  explicit RankRecord(std::int64_t trackId) : trackId_(trackId) {}

  /// To be called in the order of the days.
  void add(const RecordedRanking& ranking);

  /// How many charts are recorded.
  [[nodiscard]] std::size_t charts() const { return charts_.size(); }
  /// The first recorded day; there must be one.
  [[nodiscard]] Instant first() const { return first_; }

  /// The charts of a platform, where one is named, in which the app was placed: platforms and
  /// charts in the order of their enumerations, unknown ones last.
  [[nodiscard]] std::vector<ChartRanks> placed(std::optional<Platform> platform) const;

 private:
  using Key = std::tuple<std::size_t, std::string, std::size_t, std::string>;

  std::int64_t trackId_;
  Instant first_;
  std::map<Key, ChartRanks> charts_;
};

}  // namespace quillet
