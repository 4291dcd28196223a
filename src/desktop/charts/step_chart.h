// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/charts/scale.h"
#include "desktop/charts/step_line.h"
#include "desktop/charts/time_axis.h"
#include "desktop/look/look.h"

namespace quillet {

/// A price and since when it held.
struct DrawnPrice {
  Instant since;
  double price = 0;
  QString origin = {};                ///< who saw it; empty where that is not told
  std::optional<Instant> until = {};  ///< absent where it held until the next
};

/// A time of which nothing is drawn, and why: the price was in another currency.
struct UndrawnTime {
  Instant from;
  Instant to;
  QString text;
};

/// A price that a line is drawn at, and what is said of it below the line.
struct PriceMark {
  double price = 0;
  QString text;
};

/// All that a chart of one price over time shows.
struct PriceHistory {
  std::vector<DrawnPrice>
      steps;     ///< oldest first; each holds until the next, the last one until now
  Instant from;  ///< the left edge; steps before it are shown from there
  Instant now;
  std::optional<PriceMark> low;
  std::optional<PriceMark> target;
  std::function<QString(double)> priceText;  ///< how the axis writes a price
  std::vector<UndrawnTime> undrawn = {};
  bool canTarget = false;  ///< a target can be set where there is none
  double unit = 0.01;      ///< the smallest amount that a price has
};

/// Draws prices as the steps that they are: a price holds until the next, nothing lies in between.
/// What it has worked out it keeps for as long as it is drawn at one size.
///
/// An object of the event-loop thread.
class StepChart {
 public:
  static constexpr double kHeight = 168;  ///< as a rule

  /// From one point of the time axis to another.
  struct Span {
    double left = 0;
    double right = 0;
  };

  explicit StepChart(PriceHistory history);

  [[nodiscard]] const PriceHistory& history() const { return history_; }

  void paint(QPainter& painter, Look& look, const QRectF& rect);

  /// The step that is shown at `x` in such a chart; absent left of what is known.
  [[nodiscard]] std::optional<std::size_t> stepAt(Look& look, const QRectF& rect, double x);
  /// The middle of a step's part of the line. The step is one that is shown.
  [[nodiscard]] QPointF middleOf(Look& look, const QRectF& rect, std::size_t step);
  /// Whether the target's handle is there; near it is enough.
  [[nodiscard]] bool isOnTarget(Look& look, const QRectF& rect, const QPointF& at);
  /// The price that is drawn at `y`, in whole units, as far as the axis goes.
  [[nodiscard]] double priceAt(Look& look, const QRectF& rect, double y);
  /// Whether a target can be set by a press there.
  [[nodiscard]] bool startsTarget(Look& look, const QRectF& rect, const QPointF& at);
  /// Draws the target elsewhere, with the axis as it is.
  void moveTarget(const PriceMark& target) { history_.target = target; }
  /// A price as there are any.
  [[nodiscard]] double inUnits(double price) const;
  /// A round share of the axis, by which a target is moved.
  [[nodiscard]] double targetStep() const;
  /// When the step's price ended, or now.
  [[nodiscard]] Instant endOf(std::size_t step) const;
  /// The first step that is shown.
  [[nodiscard]] std::size_t firstShown() const { return first_; }

 private:
  struct Axis {
    double price;
    QString text;
  };
  struct Layout {
    QRectF rect;
    double textScale = 0;
    QRectF plot;
    std::vector<Axis> prices;
    TimeAxis time;
  };

  const Layout& layoutFor(Look& look, const QRectF& rect);
  [[nodiscard]] std::vector<Axis> namedPrices(double height) const;
  [[nodiscard]] double y(const Layout& layout, double price) const;

  void paintPriceAxis(QPainter& painter, Look& look, const Layout& layout) const;
  void paintUndrawn(QPainter& painter, Look& look, const Layout& layout) const;
  [[nodiscard]] std::vector<Span> drawnSpans(const Layout& layout) const;
  [[nodiscard]] std::vector<StepRun> runsOf(const Layout& layout) const;
  void paintLine(QPainter& painter, Look& look, const Layout& layout) const;
  void paintMarks(QPainter& painter, Look& look, const Layout& layout) const;
  void paintHandle(QPainter& painter, Look& look, const Layout& layout) const;

  PriceHistory history_;
  std::size_t first_ = 0;
  PriceRange range_;
  std::optional<Layout> layout_;
};

}  // namespace quillet
