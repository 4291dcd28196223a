// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/time_axis.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <algorithm>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kTick = 4;
constexpr double kTickDistance = 72;  // what the texts of two months need
constexpr double kAxisLine = 16;

QDate dateOf(std::chrono::sys_days day) {
  return QDate::fromJulianDay(day.time_since_epoch().count() + 2'440'588);  // 1970-01-01
}

QString tickText(const TimeTick& tick) {
  const QLocale locale;
  switch (tick.unit) {
    case TimeUnit::year: return locale.toString(dateOf(tick.day), QStringLiteral("yyyy"));
    case TimeUnit::month: return locale.toString(dateOf(tick.day), QStringLiteral("MMM"));
    case TimeUnit::day: break;
  }
  return locale.toString(dateOf(tick.day), QStringLiteral("d MMM"));
}

}  // namespace

TimeAxis::TimeAxis(const Look& look, const QRectF& plot, Instant from, Instant to)
    : plot_(plot), from_(from), to_(to) {
  const double distance = kTickDistance * look.growth();
  ticks_ = timeTicks(from, to, std::max(1, static_cast<int>(plot.width() / distance)));
}

double TimeAxis::x(Instant instant) const {
  const auto all = static_cast<double>((to_ - from_).count());
  const auto past = static_cast<double>((instant - from_).count());
  const double share = all > 0 ? std::clamp(past / all, 0.0, 1.0) : 0;
  return plot_.left() + share * plot_.width();
}

void TimeAxis::paint(QPainter& painter, Look& look, const QRectF& edges) const {
  PixelGrid grid(painter);
  const double top = plot_.bottom();
  for (const TimeTick& tick : ticks_) {
    const double at = x(tick.day);
    grid.vertical(at, top, top + kTick, look[Token::edge]);
    const QString text = tickText(tick);
    const double half = look.text.width(text, kAxisType) / 2;
    const double middle = std::clamp(at, edges.left() + half, edges.right() - half);
    look.text.draw(painter, {QRectF(middle - half, top + kTick + 2, 2 * half, kHeight - kTick - 2)},
                   text, kAxisType, look[Token::tertiary]);
  }
}

QString chartDay(Instant instant) {
  const auto day = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count()).date();
  return QLocale().toString(day, QStringLiteral("d MMM yyyy"));
}

QRectF axisLine(double right, double y) { return {right - 200, y - kAxisLine / 2, 200, kAxisLine}; }

void paintNow(QPainter& painter, Look& look, const QPointF& at) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look[Token::base]);
  painter.drawEllipse(at, 6, 6);
  painter.setBrush(look[Token::accentText]);
  painter.drawEllipse(at, 4, 4);
}

}  // namespace quillet
