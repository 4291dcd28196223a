// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "base/dates.h"
#include "desktop/look/look.h"

namespace quillet {

/// One release on a time axis.
struct ReleaseDot {
  Instant when;
  QString text;         ///< what is told of it
  bool isLate = false;  ///< it came much later after the one before it than usual
};

/// Whether a gap is worth a colour: over 1.3 of the usual one.
[[nodiscard]] bool isLateGap(std::optional<std::int64_t> days, std::optional<std::int64_t> usual);

/// Releases as dots on a line that reaches until now.
///
/// An object of the event-loop thread.
class ReleaseAxis {
 public:
  static constexpr double kHeight = 40;

  /// `dots`: the oldest first.
  ReleaseAxis(std::vector<ReleaseDot> dots, Instant now);

  [[nodiscard]] const std::vector<ReleaseDot>& dots() const { return dots_; }

  void paint(QPainter& painter, Look& look, const QRectF& rect) const;

  /// The dot nearest to `point`, where one is near.
  [[nodiscard]] std::optional<std::size_t> dotAt(const QRectF& rect, const QPointF& point) const;
  [[nodiscard]] QPointF middleOf(const QRectF& rect, std::size_t dot) const;

 private:
  [[nodiscard]] double x(const QRectF& rect, Instant when) const;
  void paintMarks(QPainter& painter, Look& look, const QRectF& rect) const;

  std::vector<ReleaseDot> dots_;
  Instant now_;
};

}  // namespace quillet
