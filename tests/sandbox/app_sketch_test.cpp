// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/app_sketch.h"

#include <gtest/gtest.h>

#include "sandbox/version_history.h"

namespace quillet::sandbox {
namespace {

using std::chrono::November;

constexpr std::chrono::sys_days kToday = std::chrono::year(2026) / November / 21;

TEST(VersionHistory, countsBackwards) {
  const std::pair<const char*, const char*> cases[] = {
      {"3.4.1", "3.4"}, {"3.4", "3.3"}, {"3.0", "2.9"}, {"2", "1.9"},
      {"1.0", ""},      {"1", ""},      {"0.1", ""},    {"6.6 beta", ""},
  };
  for (const auto& [version, before] : cases) EXPECT_EQ(versionBefore(version), before) << version;
}

TEST(AppSketch, ratingsAddUpToTheirCountAndMean) {
  struct Case {
    double stars;
    std::int64_t ratings;
  };
  for (const Case& c : {Case{4.7, 18'412}, Case{3.0, 1000}, Case{1.9, 3'221}, Case{5, 1},
                        Case{1, 7}, Case{2.7, 3}, Case{0, 0}}) {
    const SampleApp app =
        finished({.id = 1, .genres = {6002}, .stars = c.stars, .ratings = c.ratings}, kToday);
    EXPECT_EQ(app.ratings.count(), c.ratings);
    const double roundingError =
        c.ratings < 100 ? 0.5 / std::max(1.0, static_cast<double>(c.ratings)) : 0.01;
    EXPECT_NEAR(app.ratings.average(), c.stars, roundingError + 1e-9) << c.ratings;
    for (const std::int64_t part : app.ratings.histogram) EXPECT_GE(part, 0) << c.stars;
  }
}

TEST(AppSketch, datesHangOnTheDay) {
  const AppSketch sketch{.id = 7, .genres = {6002}, .version = "4.2", .updated = 6, .first = 500};
  const SampleApp app = finished(sketch, kToday);
  EXPECT_EQ(formatDay(app.versions.front().released), "2026-11-15");
  EXPECT_EQ(formatDay(app.firstReleased), "2025-07-09");
  const SampleApp nextDay = finished(sketch, kToday + std::chrono::days(1));
  EXPECT_EQ(nextDay.versions.front().released - app.versions.front().released,
            std::chrono::days(1));
}

}  // namespace
}  // namespace quillet::sandbox
