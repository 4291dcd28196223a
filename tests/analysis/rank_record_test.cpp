// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/rank_record.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"

namespace quillet {
namespace {

Instant day(int after) {
  return std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::days(after);
}

TEST(RankRecord, KnowsWhereAnAppStoodInEachChart) {
  RankRecord record(5);
  record.add({"ipad", "topPaid", day(0), {5}});
  record.add({"watch", "topFree", day(0), {4, 5}});
  record.add({"mac", "topPaid", day(1), {6}});
  record.add({"mac", "topFree", day(1), {6, 5}});
  record.add({"mac", "topFree", day(2), {6}});
  record.add({"mac", "topFree", day(3), {1, 2, 5}});
  EXPECT_EQ(record.charts(), 4U);
  EXPECT_EQ(record.first(), day(0));
  const auto lines = [&](std::optional<Platform> platform) {
    std::vector<std::string> all;
    for (const ChartRanks& ranks : record.placed(platform)) {
      all.push_back(fmt::format("{} {}: best {}, latest {}, {} of {}", ranks.platform, ranks.chart,
                                ranks.best, ranks.latest, ranks.daysPlaced, ranks.days.size()));
    }
    return join(all, "; ");
  };
  EXPECT_EQ(lines({}),
            "mac topFree: best 2, latest 3, 2 of 3; ipad topPaid: best 1, latest 1, 1 of 1; "
            "watch topFree: best 2, latest 2, 1 of 1");
  EXPECT_EQ(lines(Platform::ipad), "ipad topPaid: best 1, latest 1, 1 of 1");
}

}  // namespace
}  // namespace quillet
