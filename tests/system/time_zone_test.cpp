// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/time_zone.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillet {
namespace {

using namespace std::chrono_literals;

std::chrono::seconds offset(const char* zone, const char* date) {
  ::setenv("TZ", zone, 1);
  const auto result = localTimeZone()(parseInternetDate(date).value());
  ::unsetenv("TZ");
  return result;
}

TEST(LocalTimeZone, FollowsTheRulesOfTheZoneAtTheInstant) {
  // POSIX rules, so that no time zone data is needed: summer time from March to October.
  const char* const centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
  EXPECT_EQ(offset(centralEurope, "2026-01-15T12:00:00Z"), 1h);
  EXPECT_EQ(offset(centralEurope, "2026-03-29T00:59:59Z"), 1h);
  EXPECT_EQ(offset(centralEurope, "2026-03-29T01:00:00Z"), 2h);
  EXPECT_EQ(offset("NST3:30", "1965-06-01T00:00:00Z"), -(3h + 30min));
  EXPECT_EQ(offset("UTC0", "2026-07-01T00:00:00Z"), 0h);
}

TEST(LocalTimeZone, AnswersForEveryInstant) {
  const UtcOffsetAt zone = localTimeZone();
  EXPECT_LT(std::chrono::abs(zone(Instant::min())), 24h);
  EXPECT_LT(std::chrono::abs(zone(Instant::max())), 24h);
}

}  // namespace
}  // namespace quillet
