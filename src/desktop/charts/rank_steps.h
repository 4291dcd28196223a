// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/charts/time_axis.h"

namespace quillet {

/// A place in a chart and since when it was known; absent where there was none.
struct DrawnRank {
  Instant since;
  std::optional<std::int64_t> rank;
};

/// All that a chart of one app's ranks shows.
struct RankHistory {
  std::vector<DrawnRank> days;  ///< oldest first
  Instant from;                 ///< the left edge; days before it are shown from there
  Instant now;
  /// A rank is known for so long; absent where it holds until the next.
  std::optional<std::chrono::milliseconds> holds;
};

/// Draws ranks as steps, the first place on top. The line breaks where the app was not placed.
///
/// An object of the event-loop thread.
class RankSteps {
 public:
  static constexpr double kHeight = 176;  ///< as a rule

  explicit RankSteps(RankHistory history);

  [[nodiscard]] const RankHistory& history() const { return history_; }
  /// The first day that is shown.
  [[nodiscard]] std::size_t firstShown() const { return first_; }

  void paint(QPainter& painter, Look& look, const QRectF& rect);

  /// The day that is shown at `x` in such a chart; absent where nothing is drawn.
  [[nodiscard]] std::optional<std::size_t> dayAt(Look& look, const QRectF& rect, double x);
  /// The middle of a day's part of the line; at the lower edge where there is none.
  [[nodiscard]] QPointF middleOf(Look& look, const QRectF& rect, std::size_t day);

 private:
  void layOut(Look& look, const QRectF& rect);
  [[nodiscard]] double y(std::int64_t rank) const;
  [[nodiscard]] Instant endOf(std::size_t day) const;
  void paintAxis(QPainter& painter, Look& look, const QRectF& rect) const;
  void paintLine(QPainter& painter, Look& look) const;

  RankHistory history_;
  std::size_t first_ = 0;
  std::int64_t bottom_ = 1;  ///< the rank at the lower edge
  TimeAxis time_;
};

}  // namespace quillet
