// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/charts/scale.h"
#include "desktop/look/look.h"

namespace quillet {

/// A price and since when it held.
struct DrawnPrice {
  Instant since;
  double price = 0;
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
  QString newTarget = {};  ///< what is said of a target that is begun; empty where none can be
};

/// Draws prices as the steps that they are: a price holds until the next, nothing lies in between.
/// What it has worked out it keeps for as long as it is drawn at one size.
///
/// An object of the event-loop thread.
class StepChart {
 public:
  static constexpr double kHeight = 168;  ///< as a rule

  explicit StepChart(PriceHistory history);

  [[nodiscard]] const PriceHistory& history() const { return history_; }

  void paint(QPainter& painter, Look& look, const QRectF& rect);

  /// The step that is shown at `x` in such a chart; absent left of what is known.
  [[nodiscard]] std::optional<std::size_t> stepAt(Look& look, const QRectF& rect, double x);
  /// The middle of a step's part of the line. The step is one that is shown.
  [[nodiscard]] QPointF middleOf(Look& look, const QRectF& rect, std::size_t step);
  /// Whether the target's handle is there; near it is enough.
  [[nodiscard]] bool isOnTarget(Look& look, const QRectF& rect, const QPointF& at);
  /// The price that is drawn at `y`, to the cent, as far as the axis goes.
  [[nodiscard]] double priceAt(Look& look, const QRectF& rect, double y);
  /// Draws the target elsewhere, with the axis as it is. There is one.
  void moveTarget(double price) { history_.target->price = price; }
  /// A round share of the axis, by which a target is moved.
  [[nodiscard]] double targetStep() const;
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
    std::vector<TimeTick> ticks;
  };

  const Layout& layoutFor(Look& look, const QRectF& rect);
  [[nodiscard]] std::vector<Axis> namedPrices(double height) const;
  [[nodiscard]] double x(const Layout& layout, Instant instant) const;
  [[nodiscard]] double y(const Layout& layout, double price) const;

  void paintPriceAxis(QPainter& painter, Look& look, const Layout& layout) const;
  void paintTimeAxis(QPainter& painter, Look& look, const Layout& layout) const;
  void paintLine(QPainter& painter, Look& look, const Layout& layout) const;
  void paintMarks(QPainter& painter, Look& look, const Layout& layout) const;
  void paintHandle(QPainter& painter, Look& look, const Layout& layout) const;

  PriceHistory history_;
  std::size_t first_ = 0;
  PriceRange range_;
  std::optional<Layout> layout_;
};

}  // namespace quillet
