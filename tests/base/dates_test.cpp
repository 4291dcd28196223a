// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/dates.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::chrono;

TEST(InternetDate, ReadsAndWritesEachInstant) {
  const std::tuple<const char*, std::int64_t, const char*> cases[] = {
      {"2024-02-29T23:59:59Z", 1709251199, "2024-02-29T23:59:59Z"},
      {"2024-03-01T08:00:00-07:00", 1709305200, "2024-03-01T15:00:00Z"},
      {"2024-03-01T03:00:00+05:30", 1709242200, "2024-02-29T21:30:00Z"},
      {"2016-12-31T23:59:60Z", 1483228800, "2017-01-01T00:00:00Z"},
  };
  for (const auto& [text, secondsSince1970, written] : cases) {
    const auto instant = parseInternetDate(text);
    ASSERT_TRUE(instant) << text;
    EXPECT_EQ(instant->time_since_epoch(), seconds{secondsSince1970}) << text;
    EXPECT_EQ(formatInternetDate(*instant), written);
  }
}

TEST(InternetDate, RefusesEveryOtherForm) {
  for (const char* text :
       {"", "2024-03-01T08:00:00", "2024-03-01T08:00:00.000Z", " 2024-03-01T08:00:00Z",
        "2024-3-1T08:00:00Z", "-2024-03-01T08:00:00Z", "1900-02-29T08:00:00Z",
        "2024-03-01T24:00:00Z", "2024-03-01T08:60:00Z", "2024-03-01T08:00:61Z",
        "2024-03-01T08:00:00+0700", "2024-03-01T08:00:00+24:00", "2024-03-01T08:00:00Z+07:00"}) {
    EXPECT_FALSE(parseInternetDate(text)) << text;
  }
}

TEST(InternetDate, WritesWholeSecondsTowardsThePastAndYearsOfFourDigits) {
  const std::tuple<Instant, const char*, const char*> cases[] = {
      {Instant{1999ms}, "1970-01-01T00:00:01Z", "1970-01-01"},
      {Instant{-1ms}, "1969-12-31T23:59:59Z", "1969-12-31"},
      {*parseInternetDate("0000-01-01T00:00:00+01:00"), "0000-01-01T00:00:00Z", "0000-01-01"},
      {Instant::min(), "0000-01-01T00:00:00Z", "0000-01-01"},
      {*parseInternetDate("9999-12-31T23:59:59-01:00"), "9999-12-31T23:59:59Z", "9999-12-31"},
      {Instant::max(), "9999-12-31T23:59:59Z", "9999-12-31"},
  };
  for (const auto& [instant, written, day] : cases) {
    EXPECT_EQ(formatInternetDate(instant), written);
    EXPECT_EQ(formatDay(instant), day);
  }
}

}  // namespace
}  // namespace quillet
