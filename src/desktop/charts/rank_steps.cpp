// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/rank_steps.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/charts/step_line.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kTop = 10;
constexpr double kPen = 1.5;
constexpr double kAxis = 50;
constexpr double kAxisGap = 12;   // from the plot to the longest text
constexpr double kAxisInset = 6;  // the frame of who has the focus runs there

QString rankText(std::int64_t rank) { return u'#' + QString::number(rank); }

}  // namespace

RankSteps::RankSteps(RankHistory history) : history_(std::move(history)) {
  const auto& days = history_.days;
  const auto after = std::ranges::upper_bound(days, history_.from, {}, &DrawnRank::since);
  first_ = static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - days.begin() - 1, 0));
  if (first_ + 1 < days.size() && endOf(first_) <= history_.from) ++first_;
  std::int64_t worst = 1;
  for (std::size_t i = first_; i < days.size(); ++i)
    worst = std::max(worst, days[i].rank.value_or(1));
  bottom_ = lowestRankShown(worst);
}

Instant RankSteps::endOf(std::size_t day) const {
  const auto& days = history_.days;
  const Instant next = day + 1 < days.size() ? days[day + 1].since : history_.now;
  return history_.holds ? std::min(next, days[day].since + *history_.holds) : next;
}

void RankSteps::layOut(Look& look, const QRectF& rect) {
  const double axis = std::max(
      kAxis, std::ceil(look.text.width(rankText(bottom_), kAxisType)) + kAxisInset + kAxisGap);
  const QRectF plot(rect.left(), rect.top() + kTop, std::max(1.0, rect.width() - axis),
                    rect.height() - kTop - TimeAxis::kHeight);
  time_ = TimeAxis(look, plot, history_.from, history_.now);
}

double RankSteps::y(std::int64_t rank) const {
  const double share = static_cast<double>(rank - 1) / static_cast<double>(bottom_ - 1);
  return time_.plot().top() + share * time_.plot().height();
}

void RankSteps::paint(QPainter& painter, Look& look, const QRectF& rect) {
  layOut(look, rect);
  paintAxis(painter, look, rect);
  time_.paint(painter, look, rect);
  if (!history_.days.empty()) paintLine(painter, look);
}

void RankSteps::paintAxis(QPainter& painter, Look& look, const QRectF& rect) const {
  PixelGrid grid(painter);
  const QRectF& plot = time_.plot();
  for (const std::int64_t rank : namedRanks(bottom_, plot.height())) {
    const double height = y(rank);
    grid.horizontal(plot.left(), plot.right(), height,
                    look[rank == bottom_ ? Token::edge : Token::grid]);
    look.text.draw(painter, {axisLine(rect.right() - kAxisInset, height), TextAnchor::right},
                   rankText(rank), kAxisType, look[Token::tertiary]);
  }
}

void RankSteps::paintLine(QPainter& painter, Look& look) const {
  std::vector<StepRun> runs;
  bool isJoined = false;
  for (std::size_t i = first_; i < history_.days.size(); ++i) {
    const DrawnRank& day = history_.days[i];
    if (day.rank) runs.push_back({time_.x(day.since), time_.x(endOf(i)), y(*day.rank), isJoined});
    const bool isOver = i + 1 < history_.days.size() && endOf(i) < history_.days[i + 1].since;
    isJoined = day.rank && !isOver;
  }
  if (runs.empty()) return;
  putOnGrid(runs, painter, PixelGrid(painter).thickness(kPen));
  paintSteps(painter, runs, kPen, look[Token::accentText]);
  if (history_.days.back().rank) paintNow(painter, look, {runs.back().right, runs.back().height});
}

std::optional<std::size_t> RankSteps::dayAt(Look& look, const QRectF& rect, double at) {
  layOut(look, rect);
  if (at > time_.plot().right()) return {};
  std::optional<std::size_t> found;
  for (std::size_t i = first_; i < history_.days.size(); ++i) {
    if (time_.x(history_.days[i].since) <= at) found = i;
  }
  if (found && time_.x(endOf(*found)) < at) return {};
  return found;
}

QPointF RankSteps::middleOf(Look& look, const QRectF& rect, std::size_t day) {
  layOut(look, rect);
  const double begin = time_.x(history_.days[day].since);
  return {(begin + time_.x(endOf(day))) / 2, y(history_.days[day].rank.value_or(bottom_))};
}

}  // namespace quillet
