// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/price_chart.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <cmath>
#include <utility>

#include "desktop/look/wrapped_tip.h"

namespace quillet {

PriceChart::PriceChart(const QString& name, QWidget* parent) : ChartWidget(name, parent) {}

void PriceChart::show(PriceHistory history, const QString& summary) {
  const bool canMove = !history.steps.empty() && (history.target || history.canTarget);
  isMoving_ = isMoving_ && canMove;
  isDragging_ = isDragging_ && canMove;
  if (isMoving_) targetBefore_ = std::exchange(history.target, chart_.history().target);
  chart_ = StepChart(std::move(history));
  showAnew(summary);
}

QSize PriceChart::sizeHint() const { return {480, static_cast<int>(StepChart::kHeight)}; }

QSize PriceChart::minimumSizeHint() const { return {240, static_cast<int>(StepChart::kHeight)}; }

std::size_t PriceChart::pointCount() const {
  return chart_.history().steps.size() - chart_.firstShown();
}

const DrawnPrice& PriceChart::stepOf(std::size_t point) const {
  return chart_.history().steps[chart_.firstShown() + point];
}

QStringList PriceChart::columnNames() const {
  QStringList names{tr("From"), tr("Until"), tr("Price")};
  const bool hasOrigins = pointCount() > 0 && !stepOf(0).origin.isEmpty();
  if (hasOrigins) names << tr("Source");
  return names;
}

QStringList PriceChart::cellsOf(std::size_t point) const {
  const DrawnPrice& shown = stepOf(point);
  const bool isLast = point + 1 == pointCount();
  return {chartDay(shown.since),
          isLast ? tr("now") : chartDay(chart_.endOf(chart_.firstShown() + point)),
          chart_.history().priceText(shown.price), shown.origin};
}

QString PriceChart::textOf(std::size_t point) const {
  const DrawnPrice& shown = stepOf(point);
  const QStringList cells = cellsOf(point);
  const QString text = point + 1 == pointCount()
                           ? tr("%1 since %2").arg(cells[2], cells[0])
                           : tr("%1 from %2 to %3").arg(cells[2], cells[0], cells[1]);
  return shown.origin.isEmpty() ? text : text + QStringLiteral(" · ") + shown.origin;
}

QPointF PriceChart::middleOf(std::size_t point) {
  return chart_.middleOf(lookOf(*this), rect(), chart_.firstShown() + point);
}

std::optional<std::size_t> PriceChart::pointAt(const QPointF& place) {
  const auto step = chart_.stepAt(lookOf(*this), rect(), place.x());
  if (!step) return {};
  return *step - chart_.firstShown();
}

void PriceChart::paintChart(QPainter& painter, Look& look) { chart_.paint(painter, look, rect()); }

void PriceChart::moveTarget(double price) {
  const auto& target = chart_.history().target;
  if (!std::exchange(isMoving_, true)) targetBefore_ = target;
  chart_.moveTarget({price, target ? target->text : tr("Target")});
  drawAnew();
  setAccessibleDescription(tr("Target %1").arg(chart_.history().priceText(price)));
}

/// The axis follows: what lies below it is reached as well.
void PriceChart::stepTarget(int steps) {
  const PriceHistory& history = chart_.history();
  const double before = history.target ? history.target->price : history.steps.back().price;
  const double price = std::max(0.0, before + steps * chart_.targetStep());
  moveTarget(chart_.inUnits(price));
  chart_ = StepChart(PriceHistory(chart_.history()));
}

void PriceChart::leaveTarget() { endMove(TargetMove::left); }

void PriceChart::endMove(TargetMove how) {
  isDragging_ = false;
  if (!std::exchange(isMoving_, false)) return;
  const auto before = std::exchange(targetBefore_, std::nullopt);
  const double price = chart_.history().target->price;
  if (how == TargetMove::chosen && (!before || price != before->price)) {
    Q_EMIT targetChosen(price);
    return;
  }
  PriceHistory history = chart_.history();
  history.target = before;
  chart_ = StepChart(std::move(history));
  drawAnew();
  choose(std::nullopt);
}

void PriceChart::mousePressEvent(QMouseEvent* event) {
  Look& look = lookOf(*this);
  const bool isLeft = event->button() == Qt::LeftButton;
  const bool starts = isLeft && chart_.startsTarget(look, rect(), event->position());
  isDragging_ = starts || (isLeft && chart_.isOnTarget(look, rect(), event->position()));
  if (starts) moveTarget(chart_.priceAt(look, rect(), event->position().y()));
  if (!isDragging_) ChartWidget::mousePressEvent(event);
}

void PriceChart::mouseReleaseEvent(QMouseEvent* event) {
  if (!isDragging_) return ChartWidget::mouseReleaseEvent(event);
  endMove(TargetMove::chosen);
}

void PriceChart::mouseMoveEvent(QMouseEvent* event) {
  Look& look = lookOf(*this);
  if (isDragging_) return moveTarget(chart_.priceAt(look, rect(), event->position().y()));
  const bool starts = chart_.startsTarget(look, rect(), event->position());
  const bool moves = starts || chart_.isOnTarget(look, rect(), event->position());
  moves ? setCursor(Qt::SizeVerCursor) : unsetCursor();
  ChartWidget::mouseMoveEvent(event);
  if (starts)
    QToolTip::showText(event->globalPosition().toPoint(),
                       wrappedTip(tr("Press here to set a target price")), this);
}

void PriceChart::focusOutEvent(QFocusEvent* event) {
  if (isMoving_ && !isDragging_) endMove(TargetMove::chosen);
  ChartWidget::focusOutEvent(event);
}

bool PriceChart::moveByKey(QKeyEvent& event) {
  const PriceHistory& history = chart_.history();
  if (history.steps.empty() || (!history.target && !history.canTarget)) return false;
  const bool isUp = event.key() == Qt::Key_Up;
  if (event.modifiers().testFlag(Qt::AltModifier) && (isUp || event.key() == Qt::Key_Down)) {
    stepTarget(isUp ? 1 : -1);
    return true;
  }
  if (event.key() != Qt::Key_Escape || !isMoving_) return false;
  endMove(TargetMove::left);
  return true;
}

void PriceChart::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Alt && isMoving_ && !isDragging_) return endMove(TargetMove::chosen);
  ChartWidget::keyReleaseEvent(event);
}

void PriceChart::keyPressEvent(QKeyEvent* event) {
  if (!moveByKey(*event)) ChartWidget::keyPressEvent(event);
}

bool PriceChart::event(QEvent* event) {
  // While a target is moved, Escape is about that.
  if (event->type() == QEvent::ShortcutOverride && isMoving_ &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return ChartWidget::event(event);
}

}  // namespace quillet
