// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/calendar.h"

#include <algorithm>

namespace quillet {

namespace {

using namespace std::chrono;

// A date and time on the wall clock, counted as if that were UTC.
using WallTime = Instant;

WallTime wallTime(Instant instant, const UtcOffsetAt& zone) { return instant + zone(instant); }

/// The offset depends on the instant that is looked for. The one found for the wall time read as
/// UTC is at most one clock change off; asked again at that instant, the zone gives the right one.
/// Where clocks skip the wall time neither is: it counts as if they had not been put forward yet,
/// so that a skipped midnight is the moment of the change and not 23:00 of the day before.
Instant instantAt(WallTime wall, const UtcOffsetAt& zone) {
  const Instant nearby = wall - zone(wall);
  const Instant found = wall - zone(nearby);
  return zone(found) == zone(nearby) ? found : std::max(found, nearby);
}

sys_days dayInMonth(year_month month, day wanted) {
  const day lastDay = (month / last).day();
  return month / std::min(wanted, lastDay);
}

}  // namespace

std::int64_t calendarYear(Instant instant, const UtcOffsetAt& zone) {
  const year_month_day date{floor<days>(wallTime(instant, zone))};
  return static_cast<int>(date.year());
}

Instant startOfDay(Instant instant, const UtcOffsetAt& zone) {
  return instantAt(floor<days>(wallTime(instant, zone)), zone);
}

Instant monthsBefore(Instant instant, std::int64_t count, const UtcOffsetAt& zone) {
  constexpr std::int64_t kFarthest = 120'000;  // ten thousand years, well inside chrono's calendar
  const WallTime wall = wallTime(instant, zone);
  const sys_days today = floor<days>(wall);
  const year_month_day date{today};
  const months back{std::clamp(count, -kFarthest, kFarthest)};
  const year_month month = date.year() / date.month() - back;
  return instantAt(dayInMonth(month, date.day()) + (wall - today), zone);
}

}  // namespace quillet
