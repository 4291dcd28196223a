// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/look/look.h"

namespace quillet {

/// Round amounts from 0 up to one that nothing exceeds.
struct CostScale {
  double top = 1;
  double step = 1;

  bool operator==(const CostScale&) const = default;
};

/// With at most three steps, which are 1, 2, 4 or 5 times a power of ten.
[[nodiscard]] CostScale costScaleOf(double highest);

/// Heights in pixels, moved down to be `distance` apart, and up where that leads below `bottom`; in
/// their order from top to bottom, of which equal ones keep theirs. Where there is no room for that
/// they are closer.
[[nodiscard]] std::vector<double> spreadApart(const std::vector<double>& heights, double distance,
                                              double top, double bottom);

/// What one thing has cost after so many years, the first year first. It is paid at each year's
/// beginning.
struct CostLine {
  QString name;
  std::vector<double> totals;
  bool isLeast = false;
};

/// All that a chart of costs shows, in one currency. Each line has as many years.
struct CostPicture {
  std::vector<CostLine> lines;
  int years = 1;                              ///< that are marked
  std::function<QString(double)> amountText;  ///< how amounts are written
  std::function<QString(double)> axisText;    ///< and those of the axis
};

/// Draws costs as the steps that they are, their names beside their ends: what costs least
/// strongly, all others grey.
class CostPlot {
 public:
  explicit CostPlot(CostPicture picture);

  [[nodiscard]] const CostPicture& picture() const { return picture_; }
  /// As a rule; more where the names need it.
  [[nodiscard]] double height(const Look& look) const;

  void paint(QPainter& painter, Look& look, const QRectF& rect) const;

  /// The year that `x` lies in, from 1; absent beside the lines.
  [[nodiscard]] std::optional<int> yearAt(Look& look, const QRectF& rect, double x) const;
  /// Where a year ends.
  [[nodiscard]] double endOf(Look& look, const QRectF& rect, int year) const;
  /// How far the lines reach, from top to bottom.
  [[nodiscard]] QRectF plotIn(Look& look, const QRectF& rect) const;

 private:
  [[nodiscard]] int yearCount() const;
  [[nodiscard]] double y(const QRectF& plot, double amount) const;
  void paintAmounts(QPainter& painter, Look& look, const QRectF& plot) const;
  void paintYears(QPainter& painter, Look& look, const QRectF& plot) const;
  void paintLine(QPainter& painter, Look& look, const QRectF& plot, const CostLine& line) const;
  void paintNames(QPainter& painter, Look& look, const QRectF& plot, double right) const;

  CostPicture picture_;
  CostScale scale_;
};

}  // namespace quillet
