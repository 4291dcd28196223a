// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/calendar.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::chrono_literals;

Instant at(std::string_view date) { return parseInternetDate(date).value(); }

/// A zone whose clocks are changed once.
UtcOffsetAt changing(const char* when, std::chrono::hours before, std::chrono::hours after) {
  return
      [when = at(when), before, after](Instant instant) { return instant < when ? before : after; };
}

TEST(Calendar, ADayBeginsAtMidnightOrWhereClocksSkipIt) {
  const UtcOffsetAt spring = changing("2026-09-06T04:00:00Z", -4h, -3h);
  const UtcOffsetAt east = changing("2026-03-28T22:00:00Z", 2h, 3h);
  const UtcOffsetAt autumn = changing("2026-11-01T05:00:00Z", -4h, -5h);
  const std::tuple<const char*, UtcOffsetAt, const char*, const char*> rows[] = {
      {"midnight is skipped", spring, "2026-09-06T15:00:00Z", "2026-09-06T04:00:00Z"},
      {"the day before", spring, "2026-09-06T03:59:59Z", "2026-09-05T04:00:00Z"},
      {"the day after", spring, "2026-09-07T03:00:00Z", "2026-09-07T03:00:00Z"},
      {"skipped in the east", east, "2026-03-29T12:00:00Z", "2026-03-28T22:00:00Z"},
      {"midnight comes twice", autumn, "2026-11-01T05:30:00Z", "2026-11-01T04:00:00Z"},
  };
  for (const auto& [situation, zone, instant, start] : rows)
    EXPECT_EQ(formatInternetDate(startOfDay(at(instant), zone)), start) << situation;
}

}  // namespace
}  // namespace quillet
