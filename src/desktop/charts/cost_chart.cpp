// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/cost_chart.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

constexpr double kRight = 16;  // as far as a table's lines go
constexpr double kLeft = 16;

}  // namespace

CostChart::CostChart(const QString& name, QWidget* parent) : QWidget(parent), plot_(CostPicture{}) {
  setAccessibleName(name);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
}

void CostChart::show(CostPicture picture, const QString& summary) {
  const std::optional<int> kept = hasFocus() ? chosen_ : std::nullopt;
  plot_ = CostPlot(std::move(picture));
  summary_ = summary;
  choose(hasLines() ? kept : std::nullopt);
}

QSize CostChart::sizeHint() const {
  return {480, static_cast<int>(std::ceil(plot_.height(lookOf(*this))))};
}

QRectF CostChart::place() const { return QRectF(rect()).adjusted(kLeft, 0, -kRight, 0); }

void CostChart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  if (!hasLines()) {
    painter.setPen(look[Token::secondary]);
    painter.setFont(look.text.font(kBodyType));
    painter.drawText(place(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, summary_);
    return;
  }
  plot_.paint(painter, look, place());
  if (!chosen_) return;
  const QRectF plot = plot_.plotIn(look, place());
  const double end = plot_.endOf(look, place(), *chosen_);
  const double begin = plot_.endOf(look, place(), *chosen_ - 1);
  QColor shade = look[Token::accentText];
  shade.setAlphaF(0.1F);
  painter.fillRect(QRectF(begin, plot.top(), end - begin, plot.height()), shade);
}

QString CostChart::textOf(int year) const {
  QStringList parts;
  for (const CostLine& line : plot_.picture().lines) {
    const QString amount =
        plot_.picture().amountText(line.totals[static_cast<std::size_t>(year - 1)]);
    parts << tr("%1: %2").arg(line.name, amount);
  }
  const QString head = year == 1 ? tr("After 1 year") : tr("After %1 years").arg(year);
  return head + QStringLiteral(" – ") + parts.join(QStringLiteral(", "));
}

void CostChart::choose(std::optional<int> year) {
  chosen_ = year;
  setAccessibleDescription(year ? textOf(*year) : summary_);
  update();
}

void CostChart::tell(int year) {
  if (chosen_ != year) choose(year);
  const double end = plot_.endOf(lookOf(*this), place(), year);
  const QPoint at(static_cast<int>(end), height() / 2);
  QToolTip::showText(mapToGlobal(at), wrappedTip(textOf(year)), this);
}

void CostChart::mouseMoveEvent(QMouseEvent* event) {
  const auto year =
      hasLines() ? plot_.yearAt(lookOf(*this), place(), event->position().x()) : std::nullopt;
  if (year) {
    tell(*year);
  } else if (chosen_) {
    choose(std::nullopt);
    QToolTip::hideText();
  }
}

void CostChart::leaveEvent(QEvent* event) {
  choose(std::nullopt);
  QWidget::leaveEvent(event);
}

void CostChart::focusOutEvent(QFocusEvent* event) {
  choose(std::nullopt);
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

void CostChart::keyPressEvent(QKeyEvent* event) {
  const bool isLeft = event->key() == Qt::Key_Left;
  const bool steps = isLeft || event->key() == Qt::Key_Right;
  if (!hasLines() || !steps || event->modifiers() != Qt::NoModifier) {
    QWidget::keyPressEvent(event);
    return;
  }
  const int last = static_cast<int>(plot_.picture().lines.front().totals.size());
  if (!chosen_) return tell(std::clamp(plot_.picture().years, 1, last));
  tell(std::clamp(*chosen_ + (isLeft ? -1 : 1), 1, last));
}

bool CostChart::event(QEvent* event) {
  // Its tooltips follow the pointer by themselves.
  if (event->type() == QEvent::ToolTip) return true;
  return QWidget::event(event);
}

}  // namespace quillet
