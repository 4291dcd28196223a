// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/charts/chart_widget.h"
#include "desktop/charts/release_axis.h"

namespace quillet {

/// Releases over time.
class ReleaseChart : public ChartWidget {
  Q_OBJECT

 public:
  explicit ReleaseChart(QWidget* parent = nullptr);

  /// `summary` is the description until a release is chosen.
  void show(ReleaseAxis axis, const QString& summary);
  using QWidget::show;

  [[nodiscard]] std::size_t pointCount() const override { return axis_.dots().size(); }
  [[nodiscard]] QStringList columnNames() const override;
  [[nodiscard]] QStringList cellsOf(std::size_t point) const override;
  [[nodiscard]] QPointF middleOf(std::size_t point) override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {120, sizeHint().height()}; }

 protected:
  void paintChart(QPainter& painter, Look& look) override;
  [[nodiscard]] std::optional<std::size_t> pointAt(const QPointF& place) override;
  [[nodiscard]] QString textOf(std::size_t point) const override;

 private:
  ReleaseAxis axis_{{}, {}};
};

}  // namespace quillet
