// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/maintenance_health.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "analysis/maintenance_texts.h"
#include "support/memory_settings.h"

namespace quillet {
namespace {

using namespace std::chrono;

const Instant kNow = *parseInternetDate("2026-11-21T12:00:00Z");
constexpr seconds kMonth{2'630'016};

/// Releases so long before now, newest first.
std::vector<VersionEntry> history(const std::vector<seconds>& ages) {
  std::vector<VersionEntry> entries;
  for (const seconds age : ages) entries.push_back({"1.0", kNow - age, {}});
  return entries;
}

/// One release a week, the newest a day old.
std::vector<VersionEntry> weekly(int count) {
  std::vector<VersionEntry> entries;
  for (int i = 0; i < count; ++i) entries.push_back({"1.0", kNow - days(1 + 7 * i), {}});
  return entries;
}

std::string verdict(const std::vector<VersionEntry>& releases,
                    const MaintenanceThresholds& thresholds = {},
                    std::optional<Instant> fallback = {}) {
  const MaintenanceHealth health = maintenanceHealth(releases, fallback, thresholds, kNow);
  EXPECT_EQ(health.updatesLastYear.has_value(), health.level == MaintenanceLevel::active);
  return fmt::format("{}: {}", textOf(kMaintenanceWords, health.level), maintenanceSummary(health));
}

TEST(MaintenanceHealthTest, JudgesByTheAgeOfTheNewestRelease) {
  EXPECT_EQ(verdict(history({6 * kMonth - 1s})), "active: 1 update in the last year");
  EXPECT_EQ(verdict(history({6 * kMonth})), "slowing: Last updated 6 months ago");
  EXPECT_EQ(verdict(history({12 * kMonth - 1s})), "slowing: Last updated 11 months ago");
  EXPECT_EQ(verdict(history({12 * kMonth})), "stale: No update in 12 months");
  EXPECT_EQ(verdict(history({24 * kMonth - 1s})), "stale: No update in 23 months");
  EXPECT_EQ(verdict(history({30 * kMonth})), "abandoned: No update in over 2 years");
  EXPECT_EQ(verdict(history({3 * kMonth}), {1, 2, 3}), "abandoned: No update in over 3 months");
  EXPECT_EQ(verdict(history({30 * kMonth, 2 * kMonth})), "active: 1 update in the last year");
  EXPECT_EQ(verdict({}), "unknown: Update history unavailable");
  EXPECT_EQ(verdict({}, {}, kNow - 8 * kMonth), "slowing: Last updated 8 months ago");
  EXPECT_EQ(verdict(history({13 * kMonth}), {}, kNow), "stale: No update in 13 months");
}

TEST(MaintenanceHealthTest, CountsTheUpdatesOfAYear) {
  EXPECT_EQ(verdict(history({13 * kMonth}), {18, 19, 20}), "active: 1 update in the last year");
  EXPECT_EQ(verdict(history({-days(2), days(365), days(365) + 1s})),
            "active: 2 updates in the last year");
  EXPECT_EQ(verdict(weekly(24)), "active: 24 updates in the last year");
  EXPECT_EQ(verdict(weekly(25)), "active: 25+ updates in the last year");
  std::vector<VersionEntry> cutElsewhere = weekly(25);
  cutElsewhere.back().releaseDate = kNow - days(400);
  EXPECT_EQ(verdict(cutElsewhere), "active: 24 updates in the last year");
}

TEST(MaintenanceHealthTest, KeepsTheThresholdsIncreasing) {
  const std::tuple<const char*, const char*, const char*, MaintenanceThresholds> rows[] = {
      {"0", "0", "-3", {6, 12, 24}},
      {"200", "0", "0", {118, 119, 120}},
      {"1", "119", "5", {1, 119, 120}},
      {"x", "500", "500", {6, 119, 120}},
  };
  for (const auto& [slowing, stale, abandoned, expected] : rows) {
    const MemorySettings settings({{"maintenanceSlowingAfterMonths", slowing},
                                   {"maintenanceStaleAfterMonths", stale},
                                   {"maintenanceAbandonedAfterMonths", abandoned}});
    EXPECT_EQ(readMaintenanceThresholds(settings), expected) << slowing << ' ' << stale;
  }
}

TEST(MaintenanceHealthTest, TakesTheMedianOfTheGaps) {
  const std::pair<std::vector<seconds>, std::int64_t> rows[] = {
      {{days(1)}, -1},
      {{0s, days(3) + 12h}, 4},
      {{0s, days(2) + 11h}, 2},
      {{days(31), days(1), 0s, days(11)}, 10},
      {{0s, days(1), days(31), days(36), days(46)}, 8},  // of 1, 5, 10 and 30: 7.5
  };
  for (const auto& [ages, median] : rows)
    EXPECT_EQ(medianDaysBetweenReleases(history(ages)).value_or(-1), median);
}

TEST(MaintenanceTextsTest, SayTheThresholdsInMonthsOrYears) {
  using enum MaintenanceLevel;
  const MaintenanceThresholds thresholds{1, 12, 24};
  std::string text;
  for (const MaintenanceLevel level : {active, slowing, stale, abandoned})
    text += maintenanceExplanation(level, thresholds) + "; ";
  EXPECT_EQ(text,
            "Updated in the last month; 1–12 months since an update; 1–2 years since an update; "
            "Over 2 years since an update; ");
  EXPECT_TRUE(
      maintenanceAdvice(stale, thresholds).starts_with("There's been no update in over 1 year."));
}

}  // namespace
}  // namespace quillet
