// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/release_chart.h"

#include <cmath>

#include "desktop/charts/time_axis.h"

namespace quillet {

ReleaseChart::ReleaseChart(QWidget* parent) : ChartWidget(tr("Releases over time"), parent) {}

void ReleaseChart::show(ReleaseAxis axis, const QString& summary) {
  axis_ = std::move(axis);
  showAnew(summary);
}

QStringList ReleaseChart::columnNames() const { return {tr("Day"), tr("Release")}; }

QStringList ReleaseChart::cellsOf(std::size_t point) const {
  return {chartDay(axis_.dots()[point].when), axis_.dots()[point].text};
}

QPointF ReleaseChart::middleOf(std::size_t point) { return axis_.middleOf(rect(), point); }

QSize ReleaseChart::sizeHint() const {
  return {480, static_cast<int>(std::ceil(ReleaseAxis::kHeight * lookOf(*this).growth()))};
}

void ReleaseChart::paintChart(QPainter& painter, Look& look) { axis_.paint(painter, look, rect()); }

std::optional<std::size_t> ReleaseChart::pointAt(const QPointF& place) {
  return axis_.dotAt(rect(), place);
}

QString ReleaseChart::textOf(std::size_t point) const { return axis_.dots()[point].text; }

}  // namespace quillet
