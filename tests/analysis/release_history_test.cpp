// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/release_history.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Days = std::vector<std::optional<std::int64_t>>;

VersionEntry released(const char* date) {
  VersionEntry entry;
  entry.releaseDate = *parseInternetDate(date);
  return entry;
}

ReleaseHistory historyOf(std::vector<VersionEntry> releases, const char* fallback = nullptr) {
  const MaintenanceView view{{}, *parseInternetDate("2026-11-21T11:00:00Z")};
  return releaseHistory(std::move(releases),
                        fallback ? parseInternetDate(fallback) : std::optional<Instant>(), view);
}

TEST(ReleaseHistory, CountsDaysAsDatesTellThem) {
  const ReleaseHistory history =
      historyOf({released("2026-11-02T12:00:00Z"), released("2026-10-20T23:00:00Z"),
                 released("2024-10-19T00:00:00Z")});
  EXPECT_EQ(history.gaps, (Days{13, 731, {}}));
  EXPECT_EQ(history.daysSinceLastRelease, 18);
  EXPECT_EQ(history.medianDaysBetweenReleases, 372);
  EXPECT_FALSE(history.capped);
}

TEST(ReleaseHistory, KnowsTheStoresLimitAndWhatStandsInForAnEmptyOne) {
  EXPECT_TRUE(historyOf(std::vector(kLongestHistory, released("2026-11-20T00:00:00Z"))).capped);
  const ReleaseHistory none = historyOf({}, "2026-03-01T08:30:00Z");
  EXPECT_EQ(none.daysSinceLastRelease, 265);
  EXPECT_EQ(none.health.level, MaintenanceLevel::slowing);
  EXPECT_EQ(historyOf({}).lastRelease, std::nullopt);
}

}  // namespace
}  // namespace quillet
