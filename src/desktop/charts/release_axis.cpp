// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/release_axis.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kMarkType = kCaptionType.tabular();
constexpr double kLate = 1.3;
constexpr double kLine = 12;  // from the top
constexpr double kDot = 4;
constexpr double kHalo = 6;
constexpr double kMarkTop = 24;
constexpr double kMarkLine = 16;
constexpr double kMarkGap = 16;  // between two texts
constexpr double kNear = 10;

QString monthText(Instant when) {
  const auto day = QDateTime::fromMSecsSinceEpoch(when.time_since_epoch().count()).date();
  return QLocale().toString(day, QStringLiteral("MMM yyyy"));
}

Instant yearsBefore(Instant now, int years) {
  const auto day = std::chrono::floor<std::chrono::days>(now);
  const std::chrono::year_month_day date(day);
  const auto before = (date.year() - std::chrono::years(years)) / date.month();
  // A day that the month lacks becomes its last.
  const auto last = (before / std::chrono::last).day();
  return std::chrono::sys_days(before / std::min(date.day(), last)) + (now - day);
}

}  // namespace

bool isLateGap(std::optional<std::int64_t> days, std::optional<std::int64_t> usual) {
  return days && usual && static_cast<double>(*days) > kLate * static_cast<double>(*usual);
}

ReleaseAxis::ReleaseAxis(std::vector<ReleaseDot> dots, Instant now)
    : dots_(std::move(dots)), now_(now) {
  if (!dots_.empty()) now_ = std::max(now_, dots_.back().when);
}

double ReleaseAxis::x(const QRectF& rect, Instant when) const {
  const QRectF line = rect.adjusted(kHalo, 0, -kHalo, 0);
  const Instant from = dots_.empty() ? now_ : dots_.front().when;
  const auto all = static_cast<double>((now_ - from).count());
  const auto past = static_cast<double>((when - from).count());
  return line.left() + (all > 0 ? std::clamp(past / all, 0.0, 1.0) : 1) * line.width();
}

QPointF ReleaseAxis::middleOf(const QRectF& rect, std::size_t dot) const {
  return {x(rect, dots_[dot].when), rect.top() + kLine + 0.5};
}

std::optional<std::size_t> ReleaseAxis::dotAt(const QRectF& rect, const QPointF& point) const {
  std::optional<std::size_t> nearest;
  double least = kNear;
  for (std::size_t i = 0; i < dots_.size(); ++i) {
    const QPointF away = point - middleOf(rect, i);
    const double distance = std::hypot(away.x(), away.y());
    if (distance > least) continue;
    least = distance;
    nearest = i;
  }
  return nearest;
}

void ReleaseAxis::paint(QPainter& painter, Look& look, const QRectF& rect) const {
  PixelGrid(painter).horizontal(rect.left(), rect.right(), rect.top() + kLine, look[Token::edge]);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (std::size_t i = 0; i < dots_.size(); ++i) {
    const QPointF middle = middleOf(rect, i);
    painter.setBrush(look[Token::base]);
    painter.drawEllipse(middle, kHalo, kHalo);
    painter.setBrush(look[dots_[i].isLate ? Token::low : Token::accentText]);
    painter.drawEllipse(middle, kDot, kDot);
  }
  paintMarks(painter, look, rect);
}

/// Both ends are named, and what is whole years before now where there is room.
void ReleaseAxis::paintMarks(QPainter& painter, Look& look, const QRectF& rect) const {
  if (dots_.empty()) return;
  const auto draw = [&](const QRectF& line, const QString& text, TextAnchor anchor) {
    look.text.draw(painter, {line, anchor}, text, kMarkType, look[Token::tertiary]);
  };
  const QRectF line(rect.left(), rect.top() + kMarkTop, rect.width(), kMarkLine * look.growth());
  const QString first = monthText(dots_.front().when);
  const QString last = QCoreApplication::translate("ReleaseChart", "now");
  draw(line, last, TextAnchor::right);
  double right = line.right() - look.text.width(last, kMarkType) - kMarkGap;
  const double left = line.left() + look.text.width(first, kMarkType) + kMarkGap;
  if (left > right) return;
  draw(line, first, TextAnchor::left);
  for (int years = 1; yearsBefore(now_, years) > dots_.front().when; ++years) {
    const QString text = monthText(yearsBefore(now_, years));
    const double half = look.text.width(text, kMarkType) / 2;
    const double middle = x(rect, yearsBefore(now_, years));
    if (middle - half < left) return;
    if (middle + half > right) continue;
    draw({middle - half, line.top(), 2 * half, line.height()}, text, TextAnchor::centre);
    right = middle - half - kMarkGap;
  }
}

}  // namespace quillet
