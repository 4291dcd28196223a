// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/watchlist_monitor.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <numeric>

#include "library/alerts.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr const char* kStore = "http://store.example";
constexpr const char* kCatalog = "http://catalog.example";

using Numbers = std::vector<int>;

std::string lookupUrl(const Numbers& ids, std::string_view country = "us") {
  return fmt::format("{}/lookup?id={}&country={}", kStore, fmt::join(ids, ","), country);
}

/// What the store answers: these apps at one price.
std::string soldAt(double price, const Numbers& ids) {
  std::vector<std::string> apps;
  for (const int id : ids) {
    apps.push_back(fmt::format(
        R"({{"trackId":{},"trackName":"Paperfold","kind":"mac-software","price":{}}})", id, price));
  }
  return fmt::format(R"({{"results":[{}]}})", fmt::join(apps, ","));
}

class WatchlistMonitorTest : public LibraryServiceTest {
 protected:
  WatchlistMonitorTest() {
    QObject::connect(&monitor_, &WatchlistMonitor::eventsRaised, &context_,
                     [this](const auto& events) {
                       keptBefore_ = unreadAlerts();
                       for (const PriceAlertEvent& event : events) told_ += identityOf(event) + ';';
                     });
  }

  void watch(std::int64_t trackId, const std::string& country, bool withPurchases = false) {
    WatchedApp app = watched(trackId, country);
    app.alertOnAnyDrop = true;
    app.alertOnPurchasePrices = withPurchases;
    runTask(store_->change(watchApps, std::vector{app}));
  }
  void answer(const std::string& url, int status, std::string body = "") {
    http_.answer(url, status, std::move(body));
  }
  void refresh() { runTask(monitor_.refresh(StopToken{})); }
  std::size_t asked() const { return http_.requests().size(); }

  /// As another process sees the library.
  std::int64_t unreadAlerts() const {
    SQLite::Database database(folder_.file().string(), SQLite::OPEN_READONLY);
    return database.execAndGet("SELECT count(*) FROM ZALERTRECORD WHERE NOT ZISREAD").getInt64();
  }

  ITunesClient client_{http_, clock_, kStore};
  CatalogClient catalog_{http_, clock_, kCatalog, [] { return 0.5; }, AnswerCacheLimits{}};
  WatchlistMonitor monitor_{
      client_, catalog_,  *store_,
      clock_,  settings_, [](double price, const auto&) { return fmt::format("{:.2f}", price); }};
  std::string told_;
  std::int64_t keptBefore_ = -1;
};

TEST_F(WatchlistMonitorTest, AsksOncePerStorefrontAndOneThatFailsLeavesTheOthersAlone) {
  watch(1, "us");
  watch(2, "us");
  watch(3, "fr");
  watch(4, "de");
  answer(lookupUrl({4}, "de"), 400);
  answer(lookupUrl({3}, "fr"), 403, "<html>Forbidden</html>");
  answer(lookupUrl({2, 1}), 200, soldAt(1.99, {1, 2}));
  refresh();
  EXPECT_EQ(told_, "2--1.99-priceDrop;1--1.99-priceDrop;");
  EXPECT_EQ(keptBefore_, 2) << "an alert is kept before it is told";
  EXPECT_EQ(monitor_.lastError(), "Apple's server returned an error (HTTP 403).");
  EXPECT_EQ(monitor_.lastEnd(), PassEnd::partial);
  EXPECT_EQ(monitor_.lastRefresh(), std::nullopt) << "two storefronts have not answered";
  EXPECT_EQ(runTask(store_->read(watchedApps)).at(0).lastCheckedAt, std::nullopt);
}

TEST_F(WatchlistMonitorTest, TheRateLimitEndsAPassQuietly) {
  watch(1, "us");
  watch(2, "de");
  answer(lookupUrl({2}, "de"), 403);  // and nothing more is asked
  refresh();
  EXPECT_EQ(monitor_.lastError(), std::nullopt);
  EXPECT_EQ(monitor_.lastRefresh(), std::nullopt);
  EXPECT_FALSE(monitor_.isRefreshing());
}

TEST_F(WatchlistMonitorTest, KeepsEachLookupAndGoesOnWhereTheLastPassWasCutShort) {
  Numbers ids(101);
  std::iota(ids.rbegin(), ids.rend(), 1);
  for (int id = 1; id <= 101; ++id) watch(id, "us");
  ids.pop_back();
  answer(lookupUrl(ids), 200, soldAt(1, ids));
  answer(lookupUrl({1}), 429);
  std::vector<PassProgress> steps;
  QObject::connect(&monitor_, &WatchlistMonitor::stateChanged, &context_, [&] {
    if (monitor_.progress()) steps.push_back(*monitor_.progress());
  });
  refresh();
  EXPECT_EQ(unreadAlerts(), 100);
  EXPECT_EQ(monitor_.recentEvents().size(), 20U);
  EXPECT_EQ(monitor_.recentEvents().front().trackId, 2) << "the last one comes first";
  EXPECT_EQ(steps, (std::vector<PassProgress>{{0, 0}, {0, 101}, {100, 101}}));
  EXPECT_EQ(monitor_.lastEnd(), PassEnd::rateLimited);
  ids.insert(ids.begin(), 1);
  ids.pop_back();
  http_.fail(lookupUrl(ids), NetworkError(NetworkError::Kind::notConnected, "off"));
  refresh();  // the storefront's other lookup would fare no better
  EXPECT_EQ(monitor_.lastError(), "off");
  EXPECT_TRUE(monitor_.wasOffline());
  EXPECT_EQ(monitor_.lastRefresh(), std::nullopt) << "nobody was reached";
}

TEST_F(WatchlistMonitorTest, ReadsPurchasesWhereAskedAndDoesWithoutThem) {
  watch(1, "us");
  watch(2, "us", true);
  watch(3, "us", true);
  answer(lookupUrl({3, 2, 1}), 200, soldAt(1.99, {1, 2}));
  // 1 is not followed, and 3 is not sold.
  answer(fmt::format("{}/api/apps/v1/catalog/us/apps?ids=2&platform=mac&"
                     "views=top-in-app-purchasables&l=en-US",
                     kCatalog),
         400);
  refresh();
  EXPECT_EQ(told_, "2--1.99-priceDrop;1--1.99-priceDrop;")
      << "a catalog that fails keeps no price back";
  EXPECT_EQ(monitor_.lastRefresh(), clock_.now());
}

TEST_F(WatchlistMonitorTest, RunsOnePassAtATimeAtTheIntervalOfTheSettings) {
  watch(1, "us");
  const std::string url = lookupUrl({1});
  http_.hold(url);
  answer(url, 200, soldAt(4.99, {1}));
  const Task<> first = monitor_.refresh(StopToken{});
  waitFor([&] { return asked() == 1; });
  refresh();
  EXPECT_EQ(asked(), 1U) << "a pass asked for during a pass";
  http_.release(url);
  waitFor([&] { return !monitor_.isRefreshing(); });

  StopSource stop;
  detach(monitor_.run(stop.token()), "the test's passes");
  const auto passAt = [&](Instant time) {
    answer(url, 200, soldAt(4.99, {1}));
    clock_.setNow(time);
    clock_.advanceToNextDeadline();
    waitFor([&] { return !monitor_.isRefreshing(); });
    handlePendingEvents();
  };
  settings_.set("priceCheckIntervalHours", "12");
  monitor_.reconsider();
  handlePendingEvents();
  EXPECT_EQ(monitor_.nextCheck(), clock_.now() + 12h);
  EXPECT_EQ(clock_.waits(), (std::vector<std::chrono::milliseconds>{4h, 12h}))
      << "a changed setting counts at once";
  passAt(clock_.now());
  EXPECT_EQ(priceCheckInterval(MemorySettings({{"priceCheckIntervalHours", "9000"}})), 9000h);
  passAt(clock_.now() + 72h);
  EXPECT_EQ(asked(), 3U) << "asleep over several intervals, the deadline passed once";
  stop.requestStop();
  handlePendingEvents();
}

TEST_F(WatchlistMonitorTest, ChecksWhatIsOverdueOnceItMay) {
  watch(1, "us");
  bool isFree = false;
  monitor_.setGate([&] { return isFree; });
  StopSource stop;
  detach(monitor_.run(stop.token()), "the test's passes");
  const auto reconsider = [&] {
    monitor_.reconsider();
    handlePendingEvents();
    waitFor([&] { return !monitor_.isRefreshing(); });
  };
  reconsider();
  EXPECT_FALSE(monitor_.isHeldBack()) << "nothing is due";
  clock_.setNow(clock_.now() + 5h);  // asleep: the monotonic clock stood still
  reconsider();
  EXPECT_TRUE(monitor_.isHeldBack());
  EXPECT_EQ(asked(), 0U);
  isFree = true;
  answer(lookupUrl({1}), 200, soldAt(4.99, {1}));
  reconsider();
  waitFor([&] { return asked() == 1 && !monitor_.isRefreshing(); });
  handlePendingEvents();
  EXPECT_FALSE(monitor_.isHeldBack());
  EXPECT_EQ(monitor_.nextCheck(), clock_.now() + 4h);
  stop.requestStop();
  handlePendingEvents();
}

}  // namespace
}  // namespace quillet
