// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/chart_history_recorder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <numeric>

#include "library/chart_orders.h"
#include "library/library_folder.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

/// A page with both charts of a platform.
std::string pageOf(const std::vector<int>& ids) {
  std::string items;
  for (const int id : ids) items += fmt::format(R"({{"adamId":"{}"}},)", id);
  items.pop_back();
  const std::string shelves = fmt::format(R"("shelves":[{{"items":[{}]}}])", items);
  return fmt::format(R"(<script id="serialized-server-data">{{"data":[{{"data":{{"segments":[)"
                     R"({{"chart":"top-free",{0}}},{{"chart":"top-paid",{0}}}]}}}}]}}</script>)",
                     shelves);
}

const std::string kMacPage = "https://web.example/us/mac/charts/36";

class ChartHistoryRecorderTest : public LibraryServiceTest {
 protected:
  void answer(std::string_view platform, int status, const std::string& body) {
    http_.answer(fmt::format("https://web.example/us/{}/charts/36", platform), status, body);
  }
  void answerAll(const std::vector<int>& ids) {
    for (const std::string_view each : {"mac", "iphone", "ipad"}) answer(each, 200, pageOf(ids));
  }
  void record() { runTask(recorder_.record("us", {})); }
  std::optional<ChartSnapshot> macChartBefore(Instant day) {
    return runTask(store_->read(snapshotBefore, std::string("chart-mac-topFree-us-0"), day));
  }

  /// Each platform's recorded charts.
  std::string recorded() {
    return runTask(store_->read([](SQLite::Database& database) {
      SQLite::Statement rows(database,
                             "SELECT ZPLATFORMRAW || ' ' || group_concat(ZCHARTRAW) || '; ' "
                             "FROM ZCHARTSNAPSHOT GROUP BY ZPLATFORMRAW");
      std::string lines;
      while (rows.executeStep()) lines += rows.getColumn(0).getString();
      return lines;
    }));
  }

  ChartsPageScraper pages_{http_, "https://web.example"};
  // Two hours east of Greenwich: its day began at ten in the evening.
  ChartHistoryRecorder recorder_{pages_, *store_, clock_, [](Instant) { return 2h; }};
};

TEST_F(ChartHistoryRecorderTest, RecordsEachChartOnceADay) {
  std::vector<int> ids(60);
  std::iota(ids.begin(), ids.end(), 1);
  answerAll(ids);
  record();
  record();  // asks nothing more on the same day
  EXPECT_EQ(recorded(), "ipad topFree,topPaid; iphone topFree,topPaid; mac topFree,topPaid; ");
  const Instant today = dayAndSecond(20) - 2h;
  EXPECT_FALSE(macChartBefore(today));
  const auto snapshot = macChartBefore(dayAndSecond(21));
  ASSERT_TRUE(snapshot);
  EXPECT_EQ(snapshot->trackIds.size(), 50U);
  EXPECT_EQ(snapshot->day, today);
  EXPECT_EQ(snapshot->capturedAt, dayAndSecond(20));
  clock_.setNow(dayAndSecond(20) + 22h);
  answerAll({1});
  record();
  EXPECT_EQ(macChartBefore(today + 24h), snapshot);
  EXPECT_EQ(macChartBefore(today + 25h)->trackIds.size(), 1U);
  for (const HttpRequest& request : http_.requests()) {
    EXPECT_EQ(request.requestClass, RequestClass::background);
  }
}

TEST_F(ChartHistoryRecorderTest, LeavesNoRowForWhatCannotBeRead) {
  answer("mac", 404, pageOf({3}));
  answer("ipad", 200, pageOf({3}));
  http_.fail("https://web.example/us/iphone/charts/36",
             NetworkError(NetworkError::Kind::cannotReach, "no answer"));
  record();
  answer("mac", 200, "<html>");
  answer("iphone", 200, "");
  record();
  EXPECT_EQ(recorded(), "ipad topFree,topPaid; ");
}

TEST_F(ChartHistoryRecorderTest, RunsOnePassAtATimeUntilAStopAndTheNextGoesOn) {
  answerAll({1});
  http_.hold(kMacPage);
  StopSource stop;
  QObject::connect(store_.get(), &DataStore::changed, &recorder_, [&stop] { stop.requestStop(); });
  Task<> first = recorder_.record("us", stop.token());
  EXPECT_TRUE(recorder_.isRecording());
  record();  // returns at once
  http_.release(kMacPage);
  runTask(std::move(first));
  EXPECT_EQ(recorded(), "mac topFree; ");
  EXPECT_FALSE(recorder_.isRecording());
  answer("mac", 200, pageOf({1}));
  record();
}

}  // namespace
}  // namespace quillet
