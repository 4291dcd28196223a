// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/time_words.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <array>

namespace quillet {

namespace {

using namespace std::chrono_literals;

struct AgoUnit {
  std::chrono::milliseconds length;
  const char* text;
};

// From the largest; a month and a year are average ones.
constexpr std::array<AgoUnit, 6> kUnits{{
    {365 * 24h + 6h, QT_TRANSLATE_N_NOOP("Time", "%n years ago")},
    {30 * 24h + 10h, QT_TRANSLATE_N_NOOP("Time", "%n months ago")},
    {7 * 24h, QT_TRANSLATE_N_NOOP("Time", "%n weeks ago")},
    {24h, QT_TRANSLATE_N_NOOP("Time", "%n days ago")},
    {1h, QT_TRANSLATE_N_NOOP("Time", "%n hours ago")},
    {1min, QT_TRANSLATE_N_NOOP("Time", "%n min ago")},
}};

QDateTime localTime(Instant then, const UtcOffsetAt& zone) {
  const auto offset = static_cast<int>(zone(then).count());
  return QDateTime::fromMSecsSinceEpoch(then.time_since_epoch().count(), Qt::OffsetFromUTC, offset);
}

qint64 daysBetween(const QDateTime& then, const QDateTime& now) {
  return then.date().daysTo(now.date());
}

QString tr(const char* text) { return QCoreApplication::translate("Time", text); }

}  // namespace

QString agoText(Instant then, Instant now) {
  const auto passed = now - then;
  for (const AgoUnit& unit : kUnits) {
    // Two of a unit before it is used: "13 months" says more than "1 year".
    const auto count = passed / unit.length;
    if (count >= 2 || (count == 1 && unit.length <= 24h))
      return QCoreApplication::translate("Time", unit.text, nullptr, static_cast<int>(count));
  }
  return tr("just now");
}

QString dayHeading(Instant then, Instant now, const UtcOffsetAt& zone) {
  const QDateTime day = localTime(then, zone);
  const qint64 days = daysBetween(day, localTime(now, zone));
  if (days <= 0) return tr("Today");
  if (days == 1) return tr("Yesterday");
  if (days < 7) return tr("This week");
  return QLocale().toString(day, QStringLiteral("MMMM yyyy"));
}

QString momentText(Instant then, Instant now, const UtcOffsetAt& zone) {
  const QDateTime day = localTime(then, zone);
  const qint64 days = daysBetween(day, localTime(now, zone));
  if (days <= 1) return clockText(then, zone);
  if (days < 7) return QLocale().toString(day, QStringLiteral("ddd"));
  return dateText(then, now, zone);
}

QString dateText(Instant then, Instant now, const UtcOffsetAt& zone) {
  const QDateTime day = localTime(then, zone);
  const bool isThisYear = day.date().year() == localTime(now, zone).date().year();
  return QLocale().toString(day,
                            isThisYear ? QStringLiteral("d MMM") : QStringLiteral("d MMM yyyy"));
}

QString clockText(Instant then, const UtcOffsetAt& zone) {
  return QLocale().toString(localTime(then, zone).time(), QStringLiteral("HH:mm"));
}

}  // namespace quillet
