// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/price_chart.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>
#include <utility>

#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

QString dayText(Instant instant) {
  const auto day = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count()).date();
  return QLocale().toString(day, QStringLiteral("d MMM yyyy"));
}

}  // namespace

PriceChart::PriceChart(const QString& name, QWidget* parent) : QWidget(parent) {
  setAccessibleName(name);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PriceChart::show(PriceHistory history, const QString& summary) {
  chart_.emplace(std::move(history));
  summary_ = summary;
  kept_ = {};
  before_.reset();
  isDragging_ = false;
  choose(std::nullopt);
}

QSize PriceChart::sizeHint() const { return {480, static_cast<int>(StepChart::kHeight)}; }

QSize PriceChart::minimumSizeHint() const { return {240, static_cast<int>(StepChart::kHeight)}; }

/// Drawn once for a size, a scheme and a text size; hovering draws it again and again.
const QPixmap& PriceChart::drawn() {
  Look& look = lookOf(*this);
  const double ratio = devicePixelRatioF();
  const QSize size = (QSizeF(this->size()) * ratio).toSize();
  if (kept_.pixmap.size() == size && kept_.palette == look.palette &&
      kept_.textScale == look.text.scale()) {
    return kept_.pixmap;
  }
  QPixmap pixmap(size);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(look[Token::base]);
  QPainter painter(&pixmap);
  chart_->paint(painter, look, rect());
  painter.end();
  kept_ = {pixmap, look.palette, look.text.scale()};
  return kept_.pixmap;
}

void PriceChart::paintEvent(QPaintEvent* /*event*/) {
  if (!chart_) return;
  QPainter painter(this);
  painter.drawPixmap(0, 0, drawn());
  if (!chosen_) return;
  Look& look = lookOf(*this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look[Token::accentText], 2));
  painter.setBrush(look[Token::base]);
  painter.drawEllipse(chart_->middleOf(look, rect(), *chosen_), 4, 4);
}

QString PriceChart::textOf(std::size_t step) const {
  const PriceHistory& history = chart_->history();
  const DrawnPrice& shown = history.steps[step];
  const QString price = history.priceText(shown.price);
  if (step + 1 == history.steps.size()) return tr("%1 since %2").arg(price, dayText(shown.since));
  return tr("%1 from %2 to %3")
      .arg(price, dayText(shown.since), dayText(history.steps[step + 1].since));
}

void PriceChart::choose(std::optional<std::size_t> step) {
  chosen_ = step;
  setAccessibleDescription(step ? textOf(*step) : summary_);
  update();
}

void PriceChart::tell(std::size_t step, const QPoint& place) {
  if (chosen_ != step) choose(step);
  QToolTip::showText(mapToGlobal(place), wrappedTip(textOf(step)), this);
}

void PriceChart::moveTarget(double price) {
  if (!before_) before_ = chart_->history();
  chart_->moveTarget(price);
  kept_ = {};
  setAccessibleDescription(tr("Target %1").arg(chart_->history().priceText(price)));
  update();
}

/// The axis follows: what lies below it is reached as well. A first one begins at what the app
/// costs.
void PriceChart::stepTarget(int steps) {
  if (!before_) before_ = chart_->history();
  PriceHistory history = chart_->history();
  if (!history.target) history.target = PriceMark{history.steps.back().price, history.newTarget};
  const double price = std::max(0.0, history.target->price + steps * chart_->targetStep());
  chart_.emplace(std::move(history));
  moveTarget(std::round(price * 100) / 100);
  PriceHistory moved = chart_->history();
  chart_.emplace(std::move(moved));
}

void PriceChart::endMove(TargetMove how) {
  isDragging_ = false;
  if (!before_) return;
  PriceHistory before = *std::exchange(before_, std::nullopt);
  const double price = chart_->history().target->price;
  if (how == TargetMove::chosen && (!before.target || before.target->price != price)) {
    Q_EMIT targetChosen(price);
    return;
  }
  chart_.emplace(std::move(before));
  kept_ = {};
  choose(std::nullopt);
}

void PriceChart::mousePressEvent(QMouseEvent* event) {
  isDragging_ = event->button() == Qt::LeftButton && chart_ &&
                chart_->isOnTarget(lookOf(*this), rect(), event->position());
  if (!isDragging_) QWidget::mousePressEvent(event);
}

void PriceChart::mouseReleaseEvent(QMouseEvent* event) {
  if (!isDragging_) return QWidget::mouseReleaseEvent(event);
  endMove(TargetMove::chosen);
}

void PriceChart::mouseMoveEvent(QMouseEvent* event) {
  if (!chart_) return;
  if (isDragging_) return moveTarget(chart_->priceAt(lookOf(*this), rect(), event->position().y()));
  const bool isOnTarget = chart_->isOnTarget(lookOf(*this), rect(), event->position());
  isOnTarget ? setCursor(Qt::SizeVerCursor) : unsetCursor();
  const auto step = chart_->stepAt(lookOf(*this), rect(), event->position().x());
  if (step) {
    tell(*step, event->position().toPoint());
  } else if (chosen_) {
    choose(std::nullopt);
    QToolTip::hideText();
  }
}

void PriceChart::leaveEvent(QEvent* event) {
  choose(std::nullopt);
  QWidget::leaveEvent(event);
}

void PriceChart::focusOutEvent(QFocusEvent* event) {
  if (before_ && !isDragging_) endMove(TargetMove::chosen);
  choose(std::nullopt);
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

bool PriceChart::moveByKey(QKeyEvent& event) {
  if (!chart_ || chart_->history().steps.empty()) return false;
  if (!chart_->history().target && chart_->history().newTarget.isEmpty()) return false;
  const bool isUp = event.key() == Qt::Key_Up;
  if (event.modifiers().testFlag(Qt::AltModifier) && (isUp || event.key() == Qt::Key_Down)) {
    stepTarget(isUp ? 1 : -1);
    return true;
  }
  if (event.key() != Qt::Key_Escape || !before_) return false;
  endMove(TargetMove::left);
  return true;
}

void PriceChart::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Alt && before_ && !isDragging_) return endMove(TargetMove::chosen);
  QWidget::keyReleaseEvent(event);
}

void PriceChart::keyPressEvent(QKeyEvent* event) {
  if (moveByKey(*event)) return;
  const bool isLeft = event->key() == Qt::Key_Left;
  if (!chart_ || chart_->history().steps.empty() || (!isLeft && event->key() != Qt::Key_Right)) {
    QWidget::keyPressEvent(event);
    return;
  }
  // From the present backwards, which is what one wants to know first.
  const std::size_t last = chart_->history().steps.size() - 1;
  std::size_t step = chosen_.value_or(last);
  if (chosen_) {
    step = isLeft ? std::max(step, chart_->firstShown() + 1) - 1 : std::min(step + 1, last);
  }
  tell(step, chart_->middleOf(lookOf(*this), rect(), step).toPoint());
}

bool PriceChart::event(QEvent* event) {
  // While a target is moved, Escape is about that.
  if (event->type() == QEvent::ShortcutOverride && before_ &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  // Its tooltips follow the pointer by themselves.
  if (event->type() == QEvent::ToolTip) return true;
  return QWidget::event(event);
}

}  // namespace quillet
