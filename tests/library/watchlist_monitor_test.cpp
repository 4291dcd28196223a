// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/watchlist_monitor.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "library/alerts.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"
#include "support/hand_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr const char* kStore = "http://store.example";
constexpr const char* kCatalog = "http://catalog.example";

std::string lookupUrl(const std::string& ids, const std::string& country) {
  return fmt::format("{}/lookup?id={}&country={}", kStore, ids, country);
}

std::string answerWith(const std::vector<std::pair<int, double>>& prices) {
  std::string results;
  for (const auto& [id, price] : prices) {
    results += fmt::format(
        R"({}{{"trackId":{},"trackName":"Paperfold","kind":"mac-software","price":{}}})",
        results.empty() ? "" : ",", id, price);
  }
  return fmt::format(R"({{"results":[{}]}})", results);
}

class WatchlistMonitorTest : public testing::Test {
 protected:
  WatchlistMonitorTest() {
    QObject::connect(&monitor_, &WatchlistMonitor::eventsRaised, &context_,
                     [this](const auto& events) {
                       for (const PriceAlertEvent& event : events) told_ += identityOf(event) + ';';
                     });
  }

  void watch(std::int64_t trackId, const std::string& country, bool withPurchases = false) {
    WatchedApp app = watched(trackId, country);
    app.alertOnAnyDrop = true;
    app.alertOnPurchasePrices = withPurchases;
    runTask(store_->change(watchApps, std::vector{app}));
  }

  void refresh() { runTask(monitor_.refresh(StopToken{})); }

  std::vector<std::string> asked() const {
    std::vector<std::string> urls;
    for (const HttpRequest& request : http_.requests()) urls.push_back(request.url);
    return urls;
  }

  /// As another process sees the library.
  std::int64_t unreadAlerts() const {
    SQLite::Database database(folder_.file().string(), SQLite::OPEN_READONLY);
    return database.execAndGet("SELECT count(*) FROM ZALERTRECORD WHERE NOT ZISREAD").getInt64();
  }

  LibraryFolder folder_;
  HandClock clock_{dayAndSecond(10)};
  ScriptedHttpClient http_;
  MemorySettings settings_;
  ITunesClient client_{http_, clock_, kStore};
  CatalogClient catalog_{http_, clock_, kCatalog, [] { return 0.5; }, AnswerCacheLimits{}};
  std::unique_ptr<DataStore> store_ = folder_.open();
  WatchlistMonitor monitor_{
      client_, catalog_,  *store_,
      clock_,  settings_, [](double price, const auto&) { return fmt::format("{:.2f}", price); }};
  QObject context_;
  std::string told_;
};

TEST_F(WatchlistMonitorTest, ChecksEachStorefrontInOneRequestAndTellsWhatItKept) {
  watch(1, "us");
  watch(2, "us");
  watch(3, "de");
  http_.answer(lookupUrl("3", "de"), 200, answerWith({{3, 4.99}}));
  http_.answer(lookupUrl("2,1", "us"), 200, answerWith({{1, 1.99}, {2, 2.99}}));
  std::int64_t keptBefore = -1;
  QObject::connect(&monitor_, &WatchlistMonitor::eventsRaised, &context_,
                   [&] { keptBefore = unreadAlerts(); });
  refresh();
  EXPECT_EQ(told_, "2--2.99-priceDrop;1--1.99-priceDrop;");
  EXPECT_EQ(keptBefore, 2) << "an alert is kept before it is told";
  EXPECT_EQ(monitor_.recentEvents().front().trackId, 1);
  EXPECT_EQ(monitor_.lastRefresh(), clock_.now());
  EXPECT_EQ(monitor_.lastError(), std::nullopt);
}

TEST_F(WatchlistMonitorTest, AStorefrontThatFailsLeavesTheOthersAlone) {
  watch(1, "de");
  watch(2, "us");
  watch(3, "fr");
  http_.answer(lookupUrl("3", "fr"), 400, "");
  http_.answer(lookupUrl("1", "de"), 403, "<html>Forbidden</html>");
  http_.answer(lookupUrl("2", "us"), 200, answerWith({{2, 1.99}}));
  refresh();
  EXPECT_EQ(told_, "2--1.99-priceDrop;");
  EXPECT_EQ(monitor_.lastError(), "Apple's server returned an error (HTTP 403).");
  EXPECT_EQ(monitor_.lastRefresh(), clock_.now());
  const auto failed = runTask(store_->read(watchedAppsOf, std::vector<AppKey>{{1, "de"}}));
  EXPECT_EQ(failed.at(0).lastCheckedAt, std::nullopt);
}

TEST_F(WatchlistMonitorTest, TheRateLimitEndsAPassQuietly) {
  watch(1, "us");
  watch(2, "de");
  for (const int status : {429, 403}) {
    SCOPED_TRACE(status);
    const std::size_t before = asked().size();
    http_.answer(lookupUrl("2", "de"), status, "");
    refresh();
    EXPECT_EQ(asked().size(), before + 1) << "nothing more is asked";
    EXPECT_EQ(monitor_.lastError(), std::nullopt);
    EXPECT_EQ(monitor_.lastRefresh(), std::nullopt);
    EXPECT_FALSE(monitor_.isRefreshing());
  }
}

TEST_F(WatchlistMonitorTest, KeepsEachLookupAndGoesOnWhereTheLastPassWasCutShort) {
  std::vector<WatchedApp> apps;
  std::vector<std::string> ids;
  std::vector<std::pair<int, double>> prices;
  for (int id = 1; id <= 101; ++id) {
    apps.push_back(watched(id));
    apps.back().alertOnAnyDrop = true;
    ids.insert(ids.begin(), std::to_string(id));
    prices.emplace_back(id, 1.0);
  }
  runTask(store_->change(watchApps, apps));
  ids.pop_back();
  http_.answer(lookupUrl(join(ids, ","), "us"), 200, answerWith(prices));
  http_.answer(lookupUrl("1", "us"), 429, "");
  std::vector<PassProgress> steps;
  QObject::connect(&monitor_, &WatchlistMonitor::stateChanged, &context_, [&] {
    if (monitor_.progress()) steps.push_back(*monitor_.progress());
  });
  refresh();
  EXPECT_EQ(unreadAlerts(), 100);
  ASSERT_EQ(monitor_.recentEvents().size(), 20U);
  EXPECT_EQ(monitor_.recentEvents().front().trackId, 2) << "the last one comes first";
  EXPECT_EQ(monitor_.recentEvents().back().trackId, 21);
  EXPECT_EQ(steps, (std::vector<PassProgress>{{0, 0}, {0, 101}, {100, 101}}));
  EXPECT_EQ(monitor_.lastEnd(), PassEnd::rateLimited);

  ids.insert(ids.begin(), "1");
  ids.pop_back();
  http_.answer(lookupUrl(join(ids, ","), "us"), 429, "");
  refresh();

  http_.fail(lookupUrl(join(ids, ","), "us"),
             NetworkError(NetworkError::Kind::notConnected, "off"));
  refresh();  // the storefront's other lookup would fare no better
  EXPECT_EQ(monitor_.lastError(), "off");
}

TEST_F(WatchlistMonitorTest, ReadsPurchasesWhereAskedAndDoesWithoutThem) {
  watch(1, "us");
  watch(2, "us", true);
  watch(3, "us", true);
  const std::string lookup = lookupUrl("3,2,1", "us");
  http_.answer(lookup, 200, answerWith({{1, 4.99}, {2, 1.99}}));
  // 1 is not followed, and 3 is not sold.
  http_.answer(fmt::format("{}/api/apps/v1/catalog/us/apps?ids=2&platform=mac&"
                           "views=top-in-app-purchasables&l=en-US",
                           kCatalog),
               400, "");
  refresh();
  EXPECT_EQ(told_, "2--1.99-priceDrop;") << "a catalog that fails keeps no price back";
}

TEST_F(WatchlistMonitorTest, RunsOnePassAtATimeAtTheIntervalOfTheSettings) {
  watch(1, "us");
  const std::string url = lookupUrl("1", "us");
  http_.hold(url);
  http_.answer(url, 200, answerWith({{1, 4.99}}));
  const Task<> first = monitor_.refresh(StopToken{});
  waitFor([&] { return asked().size() == 1; });
  refresh();
  EXPECT_EQ(asked().size(), 1U) << "a pass asked for during a pass";
  http_.release(url);
  waitFor([&] { return !monitor_.isRefreshing(); });

  StopSource stop;
  detach(monitor_.run(stop.token()), "the test's passes");
  struct Row {
    const char* setting;
    std::chrono::hours expected;
  };
  for (const Row& row : {Row{"0", 4h}, Row{"-3", 4h}, Row{"12", 12h}, Row{"5", 5h}}) {
    settings_.set("priceCheckIntervalHours", row.setting);
    http_.answer(url, 200, answerWith({{1, 4.99}}));
    const auto before = monitor_.lastRefresh();
    clock_.advanceToNextDeadline();
    waitFor([&] { return monitor_.lastRefresh() != before && !monitor_.isRefreshing(); });
    handlePendingEvents();
    EXPECT_EQ(monitor_.nextCheck(), clock_.now() + row.expected);
  }
  EXPECT_EQ(clock_.waits(), (std::vector<std::chrono::milliseconds>{4h, 4h, 4h, 12h, 5h}))
      << "a changed setting counts from the next wait on";
  // Asleep over several intervals: the deadline passed once.
  http_.answer(url, 200, answerWith({{1, 4.99}}));
  clock_.setNow(clock_.now() + 72h);
  clock_.advanceToNextDeadline();
  waitFor([&] { return !monitor_.isRefreshing(); });
  EXPECT_EQ(asked().size(), 6U);
  stop.requestStop();
  handlePendingEvents();
}

}  // namespace
}  // namespace quillet
