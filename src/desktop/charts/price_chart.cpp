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

void PriceChart::mouseMoveEvent(QMouseEvent* event) {
  if (!chart_) return;
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
  choose(std::nullopt);
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

void PriceChart::keyPressEvent(QKeyEvent* event) {
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
  // Its tooltips follow the pointer by themselves.
  if (event->type() == QEvent::ToolTip) return true;
  return QWidget::event(event);
}

}  // namespace quillet
