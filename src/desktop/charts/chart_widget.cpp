// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/chart_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/charts/chart_access.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

ChartWidget::ChartWidget(const QString& name, QWidget* parent) : QWidget(parent) {
  letChartsBeRead();
  setAccessibleName(name);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ChartWidget::showAnew(const QString& summary) {
  summary_ = summary;
  drawAnew();
  choose(std::nullopt);
  tellOfNewPoints(*this);
}

void ChartWidget::drawAnew() {
  kept_ = {};
  update();
}

void ChartWidget::choose(std::optional<std::size_t> point) {
  chosen_ = point;
  setAccessibleDescription(point ? textOf(*point) : summary_);
  update();
}

void ChartWidget::tell(std::size_t point) {
  if (chosen_ != point) choose(point);
  QToolTip::showText(mapToGlobal(middleOf(point).toPoint()), wrappedTip(textOf(point)), this);
}

/// Drawn once for a size, a scheme and a text size; hovering draws it again and again.
const QPixmap& ChartWidget::drawn() {
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
  paintChart(painter, look);
  painter.end();
  kept_ = {pixmap, look.palette, look.text.scale()};
  return kept_.pixmap;
}

void ChartWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.drawPixmap(0, 0, drawn());
  if (!chosen_) return;
  Look& look = lookOf(*this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look[Token::accentText], 2));
  painter.setBrush(look[Token::base]);
  painter.drawEllipse(middleOf(*chosen_), 4, 4);
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (const auto point = pointAt(event->position())) {
    if (chosen_ != point) choose(point);
    QToolTip::showText(event->globalPosition().toPoint(), wrappedTip(textOf(*point)), this);
  } else if (chosen_) {
    choose(std::nullopt);
    QToolTip::hideText();
  }
}

void ChartWidget::leaveEvent(QEvent* event) {
  choose(std::nullopt);
  QWidget::leaveEvent(event);
}

void ChartWidget::focusOutEvent(QFocusEvent* event) {
  choose(std::nullopt);
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
  const bool isLeft = event->key() == Qt::Key_Left;
  if (pointCount() == 0 || (!isLeft && event->key() != Qt::Key_Right)) {
    QWidget::keyPressEvent(event);
    return;
  }
  // From the present backwards, which is what one wants to know first.
  const std::size_t last = pointCount() - 1;
  if (!chosen_) return tell(last);
  tell(isLeft ? std::max<std::size_t>(*chosen_, 1) - 1 : std::min(*chosen_ + 1, last));
}

bool ChartWidget::event(QEvent* event) {
  // Its tooltips follow the pointer by themselves.
  if (event->type() == QEvent::ToolTip) return true;
  return QWidget::event(event);
}

}  // namespace quillet
