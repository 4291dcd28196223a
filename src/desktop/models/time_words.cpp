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
  std::int64_t least;  ///< how many are said in this unit: "13 months ago" says more than one year
  const char* one;
  const char* many;
};

// From the largest; a month and a year are average ones.
constexpr std::array<AgoUnit, 6> kUnits{{
    {365 * 24h + 6h, 2, nullptr, QT_TRANSLATE_NOOP("Time", "%1 years ago")},
    {30 * 24h + 10h, 2, nullptr, QT_TRANSLATE_NOOP("Time", "%1 months ago")},
    {7 * 24h, 2, nullptr, QT_TRANSLATE_NOOP("Time", "%1 weeks ago")},
    {24h, 1, QT_TRANSLATE_NOOP("Time", "1 day ago"), QT_TRANSLATE_NOOP("Time", "%1 days ago")},
    {1h, 1, QT_TRANSLATE_NOOP("Time", "1 hour ago"), QT_TRANSLATE_NOOP("Time", "%1 hours ago")},
    {1min, 1, QT_TRANSLATE_NOOP("Time", "1 min ago"), QT_TRANSLATE_NOOP("Time", "%1 min ago")},
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
  for (const AgoUnit& unit : kUnits) {
    const std::int64_t count = (now - then) / unit.length;
    if (count < unit.least) continue;
    return count == 1 ? tr(unit.one) : tr(unit.many).arg(count);
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
  return QLocale().toString(day, QStringLiteral("d MMM"));
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
