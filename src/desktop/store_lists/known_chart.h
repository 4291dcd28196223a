// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "analysis/chart_movement.h"
#include "analysis/chart_record.h"
#include "desktop/models/row_extras.h"
#include "library/chart_orders.h"

namespace quillet {

/// What the library knows of a chart. Movement is told against the last recorded day of a chart
/// that is recorded daily, as the command line does, and against the last look at any other.
struct KnownChart {
  bool isDaily = false;
  ChartRecord record;            ///< empty for a chart that is not recorded daily
  std::optional<Instant> since;  ///< of the order before today; absent where there is none
  EarlierChart earlier{{}};      ///< that order

  /// How a place differs from the one before; absent where there is no order before.
  [[nodiscard]] std::optional<PlaceChange> changeOf(std::int64_t trackId, std::size_t rank) const;
  /// The best place on a recorded day, or the one now if that is better; absent for an app of which
  /// no earlier place is recorded.
  [[nodiscard]] std::optional<std::int64_t> bestOf(std::int64_t trackId, std::size_t rank) const;
};

/// `day`: the start of this day.
[[nodiscard]] KnownChart readKnownChart(SQLite::Database& database, const ChartQuery& chart,
                                        Instant day);

/// Keeps what was seen of a chart: as the record of its day, unless there is one or nothing is to
/// be recorded, or as the last look.
void noteSeenChart(WriteTransaction& transaction, const SeenChart& seen, bool isRecorded);

/// The line of an app's places over the last recorded days, up to now. One that is not recorded on
/// a day stood below all that are.
[[nodiscard]] RowExtras rankLine(const KnownChart& chart, std::int64_t trackId, std::size_t rank);

}  // namespace quillet
