// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/step_chart.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kPresentType = kAxisType.weighing(600);
constexpr TypeStyle kMarkType = kAxisType.weighing(500);

constexpr double kTop = 10;
constexpr double kSmallestAxis = 52;
constexpr double kAxisInset = 6;
constexpr double kAxisGap = 12;  // from the plot to the longest text
constexpr double kMarkInset = 4;
constexpr double kMarkLine = 16;
constexpr double kMarkGap = 16;  // beside each other
constexpr double kHandleHeight = 20;

/// As wide as the screen's pixels let it be, in whole ones; the pattern in pixels of the painter.
void dashes(QPainter& painter, const std::vector<StepChart::Span>& spans, double height,
            const QColor& color, QList<qreal> pattern) {
  const PixelGrid grid(painter);
  const double width = grid.thickness();
  for (qreal& part : pattern) part /= width;
  QPen pen(color, width, Qt::CustomDashLine, Qt::FlatCap);
  pen.setDashPattern(pattern);
  const double y = grid.y(height) + width / 2;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(pen);
  for (const StepChart::Span& span : spans)
    painter.drawLine(QPointF(span.left, y), QPointF(span.right, y));
  painter.setRenderHint(QPainter::Antialiasing);
}

}  // namespace

StepChart::StepChart(PriceHistory history) : history_(std::move(history)) {
  const auto& steps = history_.steps;
  const auto after = std::ranges::upper_bound(steps, history_.from, {}, &DrawnPrice::since);
  first_ = static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - steps.begin() - 1, 0));
  const bool isOver =
      first_ + 1 < steps.size() && steps[first_].until.value_or(history_.now) <= history_.from;
  if (isOver) ++first_;
  double lowest = history_.target ? history_.target->price : HUGE_VAL;
  double highest = history_.target ? history_.target->price : 0;
  for (std::size_t i = first_; i < steps.size(); ++i) {
    lowest = std::min(lowest, steps[i].price);
    highest = std::max(highest, steps[i].price);
  }
  range_ = priceRangeOf(lowest, highest);
}

const StepChart::Layout& StepChart::layoutFor(Look& look, const QRectF& rect) {
  if (layout_ && layout_->rect == rect && layout_->textScale == look.text.scale()) return *layout_;
  Layout layout{rect, look.text.scale(), {}, {}, {}};
  const double height = rect.height() - kTop - TimeAxis::kHeight;
  layout.prices = namedPrices(height);
  double longest = 0;
  for (const Axis& each : layout.prices) {
    longest = std::max(longest, look.text.width(each.text, kPresentType));
  }
  if (history_.target) {
    const QString text = history_.priceText(history_.target->price);
    longest = std::max(longest, look.text.width(text, kPresentType));
  }
  const double axis = std::max(kSmallestAxis, std::ceil(longest) + kAxisInset + kAxisGap);
  layout.plot = QRectF(rect.left(), rect.top() + kTop, std::max(1.0, rect.width() - axis), height);
  layout.time = TimeAxis(look, layout.plot, history_.from, history_.now);
  layout_ = std::move(layout);
  return *layout_;
}

std::vector<StepChart::Axis> StepChart::namedPrices(double height) const {
  std::vector<double> prices;
  for (std::size_t i = first_; i < history_.steps.size(); ++i) {
    prices.push_back(history_.steps[i].price);
  }
  if (prices.empty()) return {};
  const double present = prices.back();
  std::vector<Axis> named;
  for (const double price : axisPrices(std::move(prices), present, range_, height)) {
    named.push_back({price, history_.priceText(price)});
  }
  return named;
}

double StepChart::y(const Layout& layout, double price) const {
  const double share = (price - range_.bottom) / (range_.top - range_.bottom);
  return layout.plot.bottom() - share * layout.plot.height();
}

void StepChart::paint(QPainter& painter, Look& look, const QRectF& rect) {
  const Layout& layout = layoutFor(look, rect);
  paintPriceAxis(painter, look, layout);
  layout.time.paint(painter, look, layout.rect);
  paintUndrawn(painter, look, layout);
  if (history_.steps.empty()) return;
  paintLine(painter, look, layout);
  if (history_.target) paintHandle(painter, look, layout);
}

void StepChart::paintPriceAxis(QPainter& painter, Look& look, const Layout& layout) const {
  PixelGrid grid(painter);
  const QRectF& plot = layout.plot;
  const double right = layout.rect.right() - kAxisInset;
  const bool hasHandle = history_.target.has_value();
  for (const Axis& each : layout.prices) {
    const double height = y(layout, each.price);
    if (each.price != range_.bottom) {
      grid.horizontal(plot.left(), plot.right(), height, look[Token::grid]);
    }
    // The handle writes its own price, where this one would lie below it.
    if (hasHandle && std::abs(height - y(layout, history_.target->price)) < kHandleHeight - 2) {
      continue;
    }
    const bool isPresent = each.price == history_.steps.back().price;
    look.text.draw(painter, {axisLine(right, height), TextAnchor::right}, each.text,
                   isPresent ? kPresentType : kAxisType,
                   look[isPresent ? Token::text : Token::tertiary]);
  }
  grid.horizontal(plot.left(), plot.right(), plot.bottom(), look[Token::edge]);
}

/// Where another currency begins or ends stands a line; its prices would only mislead.
void StepChart::paintUndrawn(QPainter& painter, Look& look, const Layout& layout) const {
  PixelGrid grid(painter);
  const QRectF& plot = layout.plot;
  for (const UndrawnTime& each : history_.undrawn) {
    if (each.to <= history_.from) continue;
    const double left = layout.time.x(each.from);
    const double right = layout.time.x(each.to);
    if (each.from > history_.from)
      grid.vertical(left, plot.top(), plot.bottom(), look[Token::edge]);
    grid.vertical(right, plot.top(), plot.bottom(), look[Token::edge]);
    const QRectF line(left + kMarkInset, plot.top() + 2,
                      std::max(0.0, right - left - 2 * kMarkInset), kMarkLine);
    look.text.drawElided(painter, {line, TextAnchor::centre}, each.text, kMarkType,
                         look[Token::tertiary]);
  }
}

/// Where prices are of the currency that the axis has.
std::vector<StepChart::Span> StepChart::drawnSpans(const Layout& layout) const {
  std::vector<Span> spans;
  double left = layout.plot.left();
  for (const UndrawnTime& each : history_.undrawn) {
    const double end = layout.time.x(each.from);
    if (end > left) spans.push_back({left, end});
    left = std::max(left, layout.time.x(each.to));
  }
  if (left < layout.plot.right()) spans.push_back({left, layout.plot.right()});
  return spans;
}

/// Nothing leads over what is not drawn.
std::vector<StepRun> StepChart::runsOf(const Layout& layout) const {
  const auto& steps = history_.steps;
  std::vector<StepRun> runs;
  for (std::size_t i = first_; i < steps.size(); ++i) {
    const bool isJoined = i > first_ && !steps[i - 1].until;
    runs.push_back({layout.time.x(steps[i].since), layout.time.x(endOf(i)),
                    y(layout, steps[i].price), isJoined});
  }
  return runs;
}

void StepChart::paintLine(QPainter& painter, Look& look, const Layout& layout) const {
  const PixelGrid grid(painter);
  const double width = grid.thickness(2);
  std::vector<StepRun> runs = runsOf(layout);
  putOnGrid(runs, painter, width);
  if (range_.startsAtZero())
    paintBelow(painter, runs, grid.y(layout.plot.bottom()), look[Token::chartFill]);
  paintMarks(painter, look, layout);
  paintSteps(painter, runs, width, look[Token::accentText]);
  paintNow(painter, look, {runs.back().right, runs.back().height});
}

void StepChart::paintMarks(QPainter& painter, Look& look, const Layout& layout) const {
  const QRectF& plot = layout.plot;
  const std::vector<Span> spans = drawnSpans(layout);
  const double begin = spans.empty() ? plot.left() : spans.front().left;
  const auto draw = [&](const PriceMark& mark, double indent, Token ink) {
    const double height = y(layout, mark.price);
    const bool isBelow = height + kMarkLine <= plot.bottom();
    const double left = begin + kMarkInset + indent;
    const QRectF line(left, isBelow ? height + 2 : height - 17,
                      std::max(0.0, plot.right() - kMarkInset - left), kMarkLine);
    look.text.drawElided(painter, {line}, mark.text, kMarkType, look[ink]);
  };
  double indent = 0;
  const bool hasLow = history_.low && history_.low->price >= range_.bottom;
  if (hasLow) {
    QColor color = look[Token::low];
    color.setAlphaF(0.75F);
    dashes(painter, spans, y(layout, history_.low->price), color, {2, 3});
    draw(*history_.low, 0, Token::low);
  }
  if (!history_.target) return;
  const double height = y(layout, history_.target->price);
  dashes(painter, spans, height, look[Token::secondary], {5, 4});
  if (hasLow && std::abs(height - y(layout, history_.low->price)) < kMarkLine) {
    indent = look.text.width(history_.low->text, kMarkType) + kMarkGap;
  }
  draw(*history_.target, indent, Token::secondary);
}

void StepChart::paintHandle(QPainter& painter, Look& look, const Layout& layout) const {
  constexpr double kGrip = 1.5;
  const double middle = y(layout, history_.target->price);
  const double left = layout.plot.right() - 5;
  const QRectF box(left, middle - kHandleHeight / 2, layout.rect.right() - left, kHandleHeight);
  paintBox(painter, box, 6, look[Token::base], {look[Token::control]});
  for (int column = 0; column < 2; ++column) {
    for (int row = 0; row < 3; ++row) {
      const QPointF corner(layout.plot.right() + 3 * column, middle - 4 + 3.25 * row);
      painter.fillRect(QRectF(corner, QSizeF(kGrip, kGrip)), look[Token::control]);
    }
  }
  look.text.draw(painter, {axisLine(layout.rect.right() - kAxisInset, middle), TextAnchor::right},
                 history_.priceText(history_.target->price), kPresentType, look[Token::text]);
}

std::optional<std::size_t> StepChart::stepAt(Look& look, const QRectF& rect, double at) {
  const Layout& layout = layoutFor(look, rect);
  if (at > layout.plot.right()) return std::nullopt;
  std::optional<std::size_t> found;
  for (std::size_t i = first_; i < history_.steps.size(); ++i) {
    if (layout.time.x(history_.steps[i].since) <= at) found = i;
  }
  if (found && history_.steps[*found].until && layout.time.x(*history_.steps[*found].until) < at)
    return std::nullopt;
  return found;
}

QPointF StepChart::middleOf(Look& look, const QRectF& rect, std::size_t step) {
  const Layout& layout = layoutFor(look, rect);
  const auto& steps = history_.steps;
  const double begin = layout.time.x(steps[step].since);
  const double end = layout.time.x(endOf(step));
  return {(begin + end) / 2, y(layout, steps[step].price)};
}

Instant StepChart::endOf(std::size_t step) const {
  const auto& steps = history_.steps;
  if (steps[step].until) return *steps[step].until;
  return step + 1 < steps.size() ? steps[step + 1].since : history_.now;
}

bool StepChart::startsTarget(Look& look, const QRectF& rect, const QPointF& at) {
  if (history_.target || !history_.canTarget || history_.steps.empty()) return false;
  const QRectF& plot = layoutFor(look, rect).plot;
  return at.x() > plot.right() + kMarkInset && at.y() >= plot.top() && at.y() <= plot.bottom();
}

bool StepChart::isOnTarget(Look& look, const QRectF& rect, const QPointF& at) {
  constexpr double kReach = 4;  // beyond its edge
  if (!history_.target) return false;
  const Layout& layout = layoutFor(look, rect);
  const double away = std::abs(at.y() - y(layout, history_.target->price));
  return at.x() >= layout.plot.right() - 5 - kReach && away <= kHandleHeight / 2 + kReach;
}

double StepChart::priceAt(Look& look, const QRectF& rect, double at) {
  const QRectF& plot = layoutFor(look, rect).plot;
  const double share = std::clamp((plot.bottom() - at) / plot.height(), 0.0, 1.0);
  return inUnits(range_.bottom + share * (range_.top - range_.bottom));
}

/// By whole numbers, since doubles have no hundredths.
double StepChart::inUnits(double price) const {
  const double perOne = std::round(1 / history_.unit);
  return perOne >= 1 ? std::round(price * perOne) / perOne : price;
}

double StepChart::targetStep() const {
  constexpr double kSteps = 20;  // over the whole axis
  const double least = std::max(history_.unit, (range_.top - range_.bottom) / kSteps);
  const double unit = std::pow(10, std::floor(std::log10(least)));
  for (const double times : {1.0, 2.0, 5.0}) {
    if (unit * times >= least) return unit * times;
  }
  return unit * 10;
}

}  // namespace quillet
