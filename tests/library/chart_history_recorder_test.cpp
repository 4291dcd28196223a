// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/chart_history_recorder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <numeric>

#include "library/chart_orders.h"
#include "library/library_folder.h"
#include "support/hand_clock.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

/// A page with both charts of a platform.
std::string pageOf(const std::vector<int>& ids) {
  std::vector<std::string> items;
  for (const int id : ids) items.push_back(fmt::format(R"({{"adamId":"{}"}})", id));
  const std::string shelves = fmt::format(R"("shelves":[{{"items":[{}]}}])", fmt::join(items, ","));
  return fmt::format(R"(<script id="serialized-server-data">{{"data":[{{"data":{{"segments":[)"
                     R"({{"chart":"top-free",{0}}},{{"chart":"top-paid",{0}}}]}}}}]}}</script>)",
                     shelves);
}

class ChartHistoryRecorderTest : public testing::Test {
 protected:
  void answerPages(std::initializer_list<std::string_view> platforms, const std::string& body) {
    for (const std::string_view platform : platforms) answer(platform, 200, body);
  }
  void answer(std::string_view platform, int status, const std::string& body) {
    http_.answer(fmt::format("https://web.example/us/{}/charts/36", platform), status, body);
  }
  void record(StopToken stop = {}) { runTask(recorder_.record("us", std::move(stop))); }

  std::string recordedKeys() {
    const auto keys = [](SQLite::Database& database) {
      return database
          .execAndGet(
              "SELECT coalesce(group_concat(ZCHARTKEY || '=' || n), '') FROM "
              "(SELECT ZCHARTKEY, count(*) n FROM ZCHARTSNAPSHOT GROUP BY 1 ORDER BY 1)")
          .getString();
    };
    return runTask(store_->read(keys));
  }

  LibraryFolder folder_;
  HandClock clock_{dayAndSecond(10)};
  ScriptedHttpClient http_;
  ChartsPageScraper pages_{http_, "https://web.example"};
  std::unique_ptr<DataStore> store_ = folder_.open();
  // Two hours east of Greenwich: its day began at ten in the evening.
  ChartHistoryRecorder recorder_{pages_, *store_, clock_, [](Instant) { return 2h; }};
};

TEST_F(ChartHistoryRecorderTest, RecordsEachChartOnceADay) {
  std::vector<int> ids(60);
  std::iota(ids.begin(), ids.end(), 1);
  answerPages({"mac", "iphone", "ipad"}, pageOf(ids));
  record();
  const std::string once =
      "chart-ipad-topFree-us-0=1,chart-ipad-topPaid-us-0=1,chart-iphone-topFree-us-0=1,"
      "chart-iphone-topPaid-us-0=1,chart-mac-topFree-us-0=1,chart-mac-topPaid-us-0=1";
  EXPECT_EQ(recordedKeys(), once);
  record();
  EXPECT_EQ(recordedKeys(), once) << "nothing is asked again on the same day";
  const auto snapshot = runTask(
      store_->read(snapshotBefore, std::string("chart-mac-topFree-us-0"), dayAndSecond(11)));
  ASSERT_TRUE(snapshot);
  EXPECT_EQ(snapshot->trackIds.size(), 50U);
  EXPECT_EQ(snapshot->day, dayAndSecond(10) - 2h);
  EXPECT_EQ(snapshot->capturedAt, dayAndSecond(10));
  clock_.setNow(dayAndSecond(10) + 22h);
  answerPages({"mac", "iphone", "ipad"}, pageOf({1}));
  record();
  EXPECT_NE(recordedKeys(), once);
}

TEST_F(ChartHistoryRecorderTest, LeavesNoRowForWhatCannotBeRead) {
  answer("mac", 404, pageOf({3}));
  answer("ipad", 200, pageOf({3}));
  http_.fail("https://web.example/us/iphone/charts/36",
             NetworkError(NetworkError::Kind::cannotReach, "no answer"));
  record();
  EXPECT_EQ(recordedKeys(), "chart-ipad-topFree-us-0=1,chart-ipad-topPaid-us-0=1");
  answer("mac", 200, "<html>");
  answer("iphone", 200, pageOf({3}));
  record();
  EXPECT_EQ(recordedKeys().find("mac"), std::string::npos);
}

TEST_F(ChartHistoryRecorderTest, RunsOnePassAtATime) {
  http_.hold("https://web.example/us/mac/charts/36");
  answerPages({"mac", "iphone", "ipad"}, pageOf({1}));
  Task<> first = recorder_.record("us", {});
  EXPECT_TRUE(recorder_.isRecording());
  record();  // returns at once
  http_.release("https://web.example/us/mac/charts/36");
  runTask(std::move(first));
}

TEST_F(ChartHistoryRecorderTest, AStopKeepsWhatIsWrittenAndTheNextPassGoesOn) {
  StopSource stop;
  answer("mac", 200, pageOf({1}));
  QObject::connect(store_.get(), &DataStore::changed, &recorder_, [&stop] { stop.requestStop(); });
  record(stop.token());
  EXPECT_EQ(recordedKeys(), "chart-mac-topFree-us-0=1");
  EXPECT_FALSE(recorder_.isRecording());
  answer("mac", 200, pageOf({1}));
  answerPages({"iphone", "ipad"}, pageOf({1}));
  record();
}

}  // namespace
}  // namespace quillet
