// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/cost_plot.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kAxisType = kCaptionType.tabular();
constexpr TypeStyle kMarkedType = kAxisType.weighing(600);
constexpr TypeStyle kNameType = kCaptionType.weighing(500);

constexpr double kTop = 8;
constexpr double kYearsHeight = 22;
constexpr double kLeastHeight = 152;
constexpr double kLine = 16;  // of a text
constexpr double kAmountGap = 10;
constexpr double kNameGap = 12;
constexpr double kWidestNames = 184;
constexpr double kNamesShare = 0.4;  // at most, of all
constexpr double kYearWord = 64;     // what "3 years" needs
constexpr double kDot = 3.5;

QString yearText(int year, bool isShort) {
  if (year == 0) return QCoreApplication::translate("CostPlot", "now");
  if (isShort) return QString::number(year);
  return year == 1 ? QCoreApplication::translate("CostPlot", "1 year")
                   : QCoreApplication::translate("CostPlot", "%1 years").arg(year);
}

}  // namespace

CostScale costScaleOf(double highest) {
  constexpr int kSteps = 3;
  if (highest <= 0) return {};
  const double least = highest / kSteps;
  const double unit = std::pow(10, std::floor(std::log10(least)));
  double step = 10 * unit;
  for (const double times : {1.0, 2.0, 4.0, 5.0}) {
    if (times * unit * (1 + 1e-9) < least) continue;
    step = times * unit;
    break;
  }
  return {std::ceil(highest / step - 1e-9) * step, step};
}

std::vector<double> spreadApart(const std::vector<double>& heights, double distance, double top,
                                double bottom) {
  std::vector<std::size_t> order(heights.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, [&](std::size_t i) { return std::pair(heights[i], i); });
  if (order.size() > 1)
    distance = std::min(distance, (bottom - top) / static_cast<double>(order.size() - 1));
  std::vector<double> result = heights;
  double least = top;
  for (const std::size_t i : order) {
    result[i] = std::max(result[i], least);
    least = result[i] + distance;
  }
  double most = bottom;
  for (std::size_t at = order.size(); at-- > 0;) {
    double& height = result[order[at]];
    height = std::min(height, most);
    most = height - distance;
  }
  return result;
}

CostPlot::CostPlot(CostPicture picture) : picture_(std::move(picture)) {
  double highest = 0;
  for (const CostLine& line : picture_.lines) {
    for (const double total : line.totals) highest = std::max(highest, total);
  }
  scale_ = costScaleOf(highest);
}

int CostPlot::yearCount() const {
  return picture_.lines.empty() ? 1 : static_cast<int>(picture_.lines.front().totals.size());
}

double CostPlot::height(const Look& look) const {
  const double names = static_cast<double>(picture_.lines.size()) * kLine * look.growth();
  return std::max(kLeastHeight, names + kTop + kYearsHeight);
}

QRectF CostPlot::plotIn(Look& look, const QRectF& rect) const {
  double amounts = 0;
  for (double at = 0; at <= scale_.top * (1 + 1e-9); at += scale_.step)
    amounts = std::max(amounts, look.text.width(picture_.axisText(at), kAxisType));
  const double left = rect.left() + std::ceil(amounts) + kAmountGap;
  const double names = std::min(kWidestNames * look.growth(), rect.width() * kNamesShare);
  return {left, rect.top() + kTop, std::max(1.0, rect.right() - names - kNameGap - left),
          rect.height() - kTop - kYearsHeight * look.growth()};
}

double CostPlot::y(const QRectF& plot, double amount) const {
  return plot.bottom() - amount / scale_.top * plot.height();
}

double CostPlot::endOf(Look& look, const QRectF& rect, int year) const {
  const QRectF plot = plotIn(look, rect);
  return plot.left() + plot.width() * year / yearCount();
}

std::optional<int> CostPlot::yearAt(Look& look, const QRectF& rect, double x) const {
  const QRectF plot = plotIn(look, rect);
  if (x < plot.left() || x > plot.right()) return std::nullopt;
  const int year = static_cast<int>((x - plot.left()) / plot.width() * yearCount()) + 1;
  return std::min(year, yearCount());
}

void CostPlot::paint(QPainter& painter, Look& look, const QRectF& rect) const {
  const QRectF plot = plotIn(look, rect);
  paintAmounts(painter, look, plot);
  paintYears(painter, look, plot);
  // What costs least lies above the others.
  for (const bool isLeast : {false, true}) {
    for (const CostLine& line : picture_.lines) {
      if (line.isLeast == isLeast) paintLine(painter, look, plot, line);
    }
  }
  paintNames(painter, look, plot, rect.right());
}

void CostPlot::paintAmounts(QPainter& painter, Look& look, const QRectF& plot) const {
  PixelGrid grid(painter);
  for (double at = 0; at <= scale_.top * (1 + 1e-9); at += scale_.step) {
    const double height = y(plot, at);
    grid.horizontal(plot.left(), plot.right(), height, look[at == 0 ? Token::edge : Token::grid]);
    look.text.draw(
        painter,
        {QRectF(plot.left() - kAmountGap - 200, height - kLine / 2, 200, kLine), TextAnchor::right},
        picture_.axisText(at), kAxisType, look[Token::tertiary]);
  }
}

void CostPlot::paintYears(QPainter& painter, Look& look, const QRectF& plot) const {
  PixelGrid grid(painter);
  const double width = plot.width() / yearCount();
  const bool isShort = width < kYearWord * look.growth();
  for (int year = 0; year <= yearCount(); ++year) {
    const double at = plot.left() + year * width;
    const bool isMarked = year == picture_.years;
    if (isMarked) grid.vertical(at, plot.top(), plot.bottom(), look[Token::control]);
    const QRectF line(at - (year == 0 ? 0 : 100), plot.bottom() + 5, 200, kLine * look.growth());
    look.text.draw(painter, {line, year == 0 ? TextAnchor::left : TextAnchor::centre},
                   yearText(year, isShort), isMarked ? kMarkedType : kAxisType,
                   look[isMarked ? Token::text : Token::tertiary]);
  }
}

void CostPlot::paintLine(QPainter& painter, Look& look, const QRectF& plot,
                         const CostLine& line) const {
  if (line.totals.empty()) return;
  const PixelGrid grid(painter);
  const double width = grid.thickness(2);
  const double step = plot.width() / yearCount();
  QPainterPath path(QPointF(plot.left(), y(plot, line.totals.front())));
  for (std::size_t i = 1; i < line.totals.size(); ++i) {
    const double at = plot.left() + static_cast<double>(i) * step;
    path.lineTo(at, path.currentPosition().y());
    path.lineTo(at, y(plot, line.totals[i]));
  }
  path.lineTo(plot.right(), path.currentPosition().y());
  const QColor& color = look[line.isLeast ? Token::accentText : Token::control];
  const QPainterPath drawn = grid.stroked(path, width);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.drawPath(drawn);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(drawn.currentPosition(), kDot, kDot);
}

void CostPlot::paintNames(QPainter& painter, Look& look, const QRectF& plot, double right) const {
  std::vector<double> heights;
  for (const CostLine& line : picture_.lines)
    heights.push_back(line.totals.empty() ? plot.bottom() : y(plot, line.totals.back()));
  const double half = kLine * look.growth() / 2;
  heights = spreadApart(heights, 2 * half, plot.top(), plot.bottom());
  const double left = plot.right() + kNameGap;
  for (std::size_t i = 0; i < heights.size(); ++i) {
    const CostLine& line = picture_.lines[i];
    if (line.totals.empty()) continue;
    const QString amount = picture_.amountText(line.totals.back());
    const double taken = look.text.width(amount, kAxisType) + kAmountGap;
    const QRectF place(left, heights[i] - half, right - left, 2 * half);
    look.text.draw(painter, {place, TextAnchor::right}, amount, kAxisType, look[Token::secondary]);
    look.text.drawElided(painter, {place.adjusted(0, 0, -taken, 0)}, line.name, kNameType,
                         look[Token::text]);
  }
}

}  // namespace quillet
