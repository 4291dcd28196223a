// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "analysis/rank_record.h"

namespace quillet {

/// The order of one chart on a recorded day.
struct ChartDay {
  Instant day;
  std::vector<std::int64_t> trackIds;
};

/// Where each app of one chart stood on every recorded day.
class ChartRecord {
 public:
  ChartRecord() = default;
  /// In the order of the days. Of an ID that stands twice in an order the first place counts.
  explicit ChartRecord(const std::vector<ChartDay>& days);

  /// How many days are recorded.
  [[nodiscard]] std::size_t days() const { return days_.size(); }
  /// The app's smallest rank; absent where it was never placed.
  [[nodiscard]] std::optional<std::int64_t> bestOf(std::int64_t trackId) const;
  /// The first day on which it was placed; absent likewise.
  [[nodiscard]] std::optional<Instant> firstOf(std::int64_t trackId) const;
  /// Its rank on the last `most` recorded days, or on all; empty where it was placed on none of
  /// them.
  [[nodiscard]] std::vector<DailyRank> ranksOf(std::int64_t trackId, std::size_t most) const;

 private:
  struct Placed {
    std::size_t day;  ///< of days_
    std::int64_t rank;
  };

  std::vector<Instant> days_;
  std::unordered_map<std::int64_t, std::vector<Placed>> placed_;  ///< by day
};

}  // namespace quillet
