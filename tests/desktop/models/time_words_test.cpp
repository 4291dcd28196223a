// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/time_words.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr auto kDay = 24h;

/// A Sunday, half past midnight where the user is, two hours ahead.
const Instant kNow{std::chrono::sys_days{std::chrono::year{2026} / 11 / 21} + 22h + 30min};
std::chrono::seconds zone(Instant /*when*/) { return 2h; }

TEST(TimeWords, SayHowLongAgoInTheLargestUnitThatIsStillExact) {
  struct {
    std::chrono::milliseconds ago;
    const char* text;
  } const rows[] = {
      {-1h, "just now"},          {59s, "just now"},           {1min, "1 min ago"},
      {59min, "59 min ago"},      {1h, "1 hour ago"},          {kDay - 1s, "23 hours ago"},
      {kDay, "1 day ago"},        {13 * kDay, "13 days ago"},  {14 * kDay, "2 weeks ago"},
      {60 * kDay, "8 weeks ago"}, {61 * kDay, "2 months ago"}, {400 * kDay, "13 months ago"},
      {731 * kDay, "2 years ago"}};
  for (const auto& row : rows)
    EXPECT_EQ(agoText(kNow - row.ago, kNow).toStdString(), row.text) << row.text;
}

TEST(TimeWords, SayDaysAsTheUserCountsThem) {
  struct {
    std::chrono::milliseconds ago;
    const char* heading;
    const char* moment;
    const char* date;
  } const rows[] = {{-1h, "Today", "01:30", "22 Nov"},
                    {30min, "Today", "00:00", "22 Nov"},
                    {31min, "Yesterday", "23:59", "21 Nov"},
                    {kDay + 31min, "This week", "Fri", "20 Nov"},
                    {6 * kDay, "This week", "Mon", "16 Nov"},
                    {6 * kDay + 31min, "November 2026", "15 Nov", "15 Nov"},
                    {330 * kDay, "December 2025", "27 Dec", "27 Dec 2025"}};
  for (const auto& row : rows) {
    const Instant then = kNow - row.ago;
    EXPECT_EQ(dayHeading(then, kNow, zone).toStdString(), row.heading) << row.date;
    EXPECT_EQ(momentText(then, kNow, zone).toStdString(), row.moment) << row.date;
    EXPECT_EQ(dateText(then, kNow, zone).toStdString(), row.date) << row.date;
  }
}

}  // namespace
}  // namespace quillet
