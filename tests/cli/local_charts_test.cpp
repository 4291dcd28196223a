// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "cli/local/previous_chart.h"
#include "library/schema/keyed_archive.h"
#include "support/local_command_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

class LocalChartsTest : public LocalCommandTest {
 protected:
  /// A day is counted from 2001-01-01; the bytes are what the column holds.
  static std::string rowWith(std::string_view platform, std::string_view chart, int day,
                             std::string_view bytes) {
    std::string hex;
    for (const char c : bytes) hex += fmt::format("{:02x}", static_cast<unsigned char>(c));
    return fmt::format(
        "INSERT INTO ZCHARTSNAPSHOT (ZCHARTKEY, ZPLATFORMRAW, ZCHARTRAW, ZCOUNTRY, ZGENREID, ZDAY,"
        " ZTRACKIDS) VALUES ('chart-{0}-{1}-us-0', '{0}', '{1}', 'us', 0, {2}, x'{3}');",
        platform, chart, day * 86400, hex);
  }
  static std::string snapshot(std::string_view platform, std::string_view chart, int day,
                              const Ids& ids) {
    return rowWith(platform, chart, day, archive(ids));
  }
  std::optional<RecordedChart> before(int day) {
    const Instant start{std::chrono::sys_days{std::chrono::year{2001} / 1 / 1}};
    return readPreviousChart(
        environment, {ChartType::topFree, Platform::mac, "us", start + std::chrono::days(day)});
  }
};

TEST_F(LocalChartsTest, PreviousChartIsTheLatestBeforeTheDay) {
  EXPECT_FALSE(before(9)) << "no library";
  makeLibrary(snapshot("mac", "topFree", 3, {7, 8}) + snapshot("mac", "topFree", 4, {8, 7}) +
              snapshot("mac", "topPaid", 5, {1}) + snapshot("iphone", "topFree", 5, {1}) +
              rowWith("mac", "topFree", 6, "broken"));
  EXPECT_FALSE(before(3));
  EXPECT_EQ(before(4)->trackIds, (Ids{7, 8}));
  EXPECT_EQ(before(5)->trackIds, (Ids{8, 7}));
  EXPECT_EQ(formatDay(before(6)->day), "2001-01-05");
  EXPECT_FALSE(before(7)) << "the latest row is damaged";
  std::ofstream(database) << "no database";
  EXPECT_FALSE(before(5));
}

TEST_F(LocalChartsTest, RankHistoryHoldsEveryDay) {
  const std::string rows =
      snapshot("mac", "topFree", 1, {5, 6}) + snapshot("mac", "topFree", 2, {6}) +
      snapshot("mac", "topFree", 3, {1, 2, 5}) + snapshot("ipad", "topPaid", 0, {5}) +
      snapshot("iphone", "topPaid", 1, {6}) + snapshot("mac", "topFree", 4, {}) +
      rowWith("mac", "topFree", 5, "") + rowWith("mac", "topFree", 6, "bplist00x") + R"(
      INSERT INTO ZCHARTSNAPSHOT (ZPLATFORMRAW, ZCHARTRAW, ZCOUNTRY, ZGENREID, ZDAY, ZTRACKIDS)
        SELECT 'mac', 'topFree', column1, column2, 9 * 86400, ZTRACKIDS FROM ZCHARTSNAPSHOT,
          (VALUES ('us', 6026), ('de', 0)) WHERE ZPLATFORMRAW = 'mac' AND ZDAY = 86400;
      INSERT INTO ZCACHEDAPP (ZTRACKID, ZNAME) VALUES (5, 'Amber Notes');
      INSERT INTO ZRANKPOINT (ZTRACKID, ZCOUNTRY, ZCHART, ZGENRENAME, ZPOSITION, ZDATE) VALUES
        (5, 'us', 'Top Paid', 'Utilities', 12, 86400), (5, 'us', 'Top Free', NULL, 140, 0),
        (5, 'us', 'Top Free', 'Broken', NULL, 0), (5, 'de', 'Top Free', 'Games', 1, 0),
        (6, 'us', 'Top Free', 'Games', 1, 0), (9, 'us', NULL, 'Games', 3, NULL);)";
  makeLibrary(rows);
  zone = [](Instant) { return -8h; };
  EXPECT_EQ(run("rank-history 5 -p mac"), R"(Amber Notes (5)
3 charts recorded for the us storefront since 2000-12-31, the top 50 of each.

Top free, mac: latest #3, best #1, placed on 2 of 4 recorded days
  █ ▁   2001-01-01 to 2001-01-04
  2001-01-03   #3
  2001-01-01   #1

Category ranks, seen when the app page was opened:
  2001-01-01  #12  Utilities (Top Paid)
  2000-12-31  #140  All categories (Top Free))");
  environment.set("LC_ALL", "C");
  EXPECT_NE(run("rank-history 5 -p mac").find("\n  # _   2001"), std::string::npos);
  const std::string seen = run("rank-history 9");
  EXPECT_TRUE(seen.starts_with("App (9)\n3 charts recorded for the us storefront since")) << seen;
  EXPECT_TRUE(seen.ends_with("app page was opened:\n               #3  Games")) << seen;
}

TEST_F(LocalChartsTest, RankHistoryIsCutInTextAlone) {
  std::string rows;
  for (int day = 1; day <= 70; ++day) rows += snapshot("mac", "topFree", day, {5});
  makeLibrary(rows);
  const std::string text = run("rank-history 5");
  EXPECT_NE(text.find("\n  (63 earlier days in --json)"), std::string::npos);
  EXPECT_NE(text.find("  2001-01-22 to 2001-03-12\n"), std::string::npos) << "fifty days drawn";
}

TEST_F(LocalChartsTest, RankHistorySaysWhyThereIsNothing) {
  makeLibrary(snapshot("mac", "topFree", 1, {5}));
  EXPECT_EQ(run("rank-history 5 -p ipad"),
            "quillet: Never in the top 50 of any recorded chart for the us storefront.\n"
            "  try: Leave out --platform to look at every chart.\n");
  EXPECT_TRUE(run("rank-history 5 -c de")
                  .starts_with("quillet: Quillet has not recorded any charts for the de storef"));
  EXPECT_EQ(status, ExitStatus::nothingFound);
}

}  // namespace
}  // namespace quillet
