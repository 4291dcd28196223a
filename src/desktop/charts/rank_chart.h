// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/charts/chart_widget.h"
#include "desktop/charts/rank_steps.h"

namespace quillet {

/// An app's place in one chart over time.
class RankChart : public ChartWidget {
  Q_OBJECT

 public:
  explicit RankChart(const QString& name, QWidget* parent = nullptr);

  /// `summary` is the description until a day is chosen.
  void show(RankHistory history, const QString& summary);
  using QWidget::show;

  [[nodiscard]] std::size_t pointCount() const override;
  [[nodiscard]] QStringList columnNames() const override;
  [[nodiscard]] QStringList cellsOf(std::size_t point) const override;
  [[nodiscard]] QPointF middleOf(std::size_t point) override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintChart(QPainter& painter, Look& look) override;
  [[nodiscard]] std::optional<std::size_t> pointAt(const QPointF& place) override;
  [[nodiscard]] QString textOf(std::size_t point) const override;

 private:
  RankSteps steps_{RankHistory{}};
};

}  // namespace quillet
