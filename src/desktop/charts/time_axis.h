// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "desktop/charts/scale.h"
#include "desktop/look/look.h"

namespace quillet {

/// The texts of all axes.
inline constexpr TypeStyle kAxisType = kCaptionType.tabular();

/// The time below a plot, from its left edge to its right one.
class TimeAxis {
 public:
  static constexpr double kHeight = 22;

  TimeAxis() = default;
  /// As many ticks as there is room for.
  TimeAxis(const Look& look, const QRectF& plot, Instant from, Instant to);

  [[nodiscard]] const QRectF& plot() const { return plot_; }
  [[nodiscard]] double x(Instant instant) const;
  /// `edges`: texts stay within them.
  void paint(QPainter& painter, Look& look, const QRectF& edges) const;

 private:
  QRectF plot_;
  Instant from_{};
  Instant to_{};
  std::vector<TimeTick> ticks_;
};

/// "5 Oct 2025"
[[nodiscard]] QString chartDay(Instant instant);

/// Where an axis on the right writes: a line centred upon a height, up to `right`.
[[nodiscard]] QRectF axisLine(double right, double y);

/// The dot at the end of a line.
void paintNow(QPainter& painter, Look& look, const QPointF& at);

}  // namespace quillet
