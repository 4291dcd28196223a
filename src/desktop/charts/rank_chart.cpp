// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/rank_chart.h"

#include <utility>

namespace quillet {

RankChart::RankChart(const QString& name, QWidget* parent) : ChartWidget(name, parent) {}

void RankChart::show(RankHistory history, const QString& summary) {
  steps_ = RankSteps(std::move(history));
  showAnew(summary);
}

std::size_t RankChart::pointCount() const {
  return steps_.history().days.size() - steps_.firstShown();
}

QStringList RankChart::columnNames() const { return {tr("Day"), tr("Rank")}; }

QStringList RankChart::cellsOf(std::size_t point) const {
  const DrawnRank& day = steps_.history().days[steps_.firstShown() + point];
  return {chartDay(day.since), day.rank ? QStringLiteral("#%1").arg(*day.rank) : tr("not placed")};
}

QString RankChart::textOf(std::size_t point) const {
  const QStringList cells = cellsOf(point);
  return tr("%1 on %2").arg(cells[1], cells[0]);
}

QPointF RankChart::middleOf(std::size_t point) {
  return steps_.middleOf(lookOf(*this), rect(), steps_.firstShown() + point);
}

QSize RankChart::sizeHint() const { return {480, static_cast<int>(RankSteps::kHeight)}; }

QSize RankChart::minimumSizeHint() const { return {240, static_cast<int>(RankSteps::kHeight)}; }

void RankChart::paintChart(QPainter& painter, Look& look) { steps_.paint(painter, look, rect()); }

std::optional<std::size_t> RankChart::pointAt(const QPointF& place) {
  const auto day = steps_.dayAt(lookOf(*this), rect(), place.x());
  if (!day) return {};
  return *day - steps_.firstShown();
}

}  // namespace quillet
