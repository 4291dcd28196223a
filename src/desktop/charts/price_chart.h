// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "desktop/charts/chart_widget.h"
#include "desktop/charts/step_chart.h"

namespace quillet {

/// A price over time, told by the times for which prices held. A target is moved with the pointer
/// by its handle, or with Alt and the arrow keys, and chosen once it is let go; Escape leaves it
/// where it was. Where there may be one and is none, a press on the axis begins one, and so do the
/// keys, at the present price.
class PriceChart : public ChartWidget {
  Q_OBJECT

 public:
  /// `name` is what those hear who do not see it: "Price history of Paperfold".
  explicit PriceChart(const QString& name, QWidget* parent = nullptr);

  /// `summary` is the description until a price is chosen: what the chart says, in a sentence.
  /// A target that is being moved stays where it was moved to.
  void show(PriceHistory history, const QString& summary);
  using QWidget::show;
  /// Puts a target that is being moved back where it was; before another app's prices are shown.
  void leaveTarget();

  [[nodiscard]] std::size_t pointCount() const override;
  [[nodiscard]] QStringList columnNames() const override;
  [[nodiscard]] QStringList cellsOf(std::size_t point) const override;
  [[nodiscard]] QPointF middleOf(std::size_t point) override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// The user moved the target there.
  void targetChosen(double price);

 protected:
  void paintChart(QPainter& painter, Look& look) override;
  [[nodiscard]] std::optional<std::size_t> pointAt(const QPointF& place) override;
  [[nodiscard]] QString textOf(std::size_t point) const override;

  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] const DrawnPrice& stepOf(std::size_t point) const;
  void moveTarget(double price);
  void stepTarget(int steps);
  enum class TargetMove { chosen, left };
  void endMove(TargetMove how);
  bool moveByKey(QKeyEvent& event);

  StepChart chart_{PriceHistory{}};
  bool isMoving_ = false;                  ///< the target, with the pointer or by keys
  std::optional<PriceMark> targetBefore_;  ///< that; absent where there was none
  bool isDragging_ = false;
};

}  // namespace quillet
