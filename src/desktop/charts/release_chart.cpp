// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/release_chart.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

#include "desktop/look/wrapped_tip.h"

namespace quillet {

ReleaseChart::ReleaseChart(QWidget* parent) : QWidget(parent) {
  setAccessibleName(tr("Releases over time"));
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ReleaseChart::show(ReleaseAxis axis, const QString& summary) {
  axis_ = std::move(axis);
  summary_ = summary;
  choose(std::nullopt);
}

QSize ReleaseChart::sizeHint() const {
  return {480, static_cast<int>(std::ceil(ReleaseAxis::kHeight * lookOf(*this).growth()))};
}

void ReleaseChart::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  axis_.paint(painter, look, rect());
  if (!chosen_) return;
  painter.setPen(QPen(look[Token::text], 2));
  painter.setBrush(look[Token::base]);
  painter.drawEllipse(axis_.middleOf(rect(), *chosen_), 4, 4);
}

void ReleaseChart::choose(std::optional<std::size_t> dot) {
  chosen_ = dot;
  setAccessibleDescription(dot ? axis_.dots()[*dot].text : summary_);
  update();
}

void ReleaseChart::tell(std::size_t dot) {
  if (chosen_ != dot) choose(dot);
  const QPoint place = axis_.middleOf(rect(), dot).toPoint();
  QToolTip::showText(mapToGlobal(place), wrappedTip(axis_.dots()[dot].text), this);
}

void ReleaseChart::mouseMoveEvent(QMouseEvent* event) {
  if (const auto dot = axis_.dotAt(rect(), event->position())) {
    tell(*dot);
  } else if (chosen_) {
    choose(std::nullopt);
    QToolTip::hideText();
  }
}

void ReleaseChart::leaveEvent(QEvent* event) {
  choose(std::nullopt);
  QWidget::leaveEvent(event);
}

void ReleaseChart::focusOutEvent(QFocusEvent* event) {
  choose(std::nullopt);
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

void ReleaseChart::keyPressEvent(QKeyEvent* event) {
  const bool isLeft = event->key() == Qt::Key_Left;
  if (axis_.dots().empty() || (!isLeft && event->key() != Qt::Key_Right)) {
    QWidget::keyPressEvent(event);
    return;
  }
  // From the latest backwards.
  const std::size_t last = axis_.dots().size() - 1;
  if (!chosen_) return tell(last);
  tell(isLeft ? std::max<std::size_t>(*chosen_, 1) - 1 : std::min(*chosen_ + 1, last));
}

bool ReleaseChart::event(QEvent* event) {
  // Its tooltips follow the pointer by themselves.
  if (event->type() == QEvent::ToolTip) return true;
  return QWidget::event(event);
}

}  // namespace quillet
