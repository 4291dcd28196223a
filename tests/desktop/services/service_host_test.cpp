// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/service_host.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "library/alerts.h"
#include "library/deals.h"
#include "library/library_folder.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "net/network_errors.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class KeptNotifications final : public NotificationCenter {
 public:
  Task<AuthorizationStatus> authorizationStatus(StopToken /*stop*/) override {
    co_return AuthorizationStatus::authorized;
  }
  Task<> requestAuthorization(StopToken /*stop*/) override { co_return; }
  Task<> add(NotificationRequest request, StopToken stop) override {
    titles += request.title + ';';
    if (!hangs) co_return;
    const Completion ended;
    const StopCallback onStop(stop, [ended] { ended.set(); });
    co_await ended;
    throw cancelledError();
  }

  [[nodiscard]] std::vector<std::string> shown() const override { return {}; }
  void withdraw(const std::string& /*identifier*/) override {}

  std::string titles;
  bool hangs = false;
};

class ServiceHostTest : public LibraryServiceTest {
 protected:
  void answerPrices(int status) {
    const std::string prices = "https://prices.example/file/quillbase-prices/v1/";
    http_.answer(prices + "manifest.json", 404, "");
    http_.answer(prices + "changes-us.json.gz", status, "");
  }

  void answerCharts() {
    for (const std::string_view platform : {"mac", "iphone", "ipad"})
      http_.answer(fmt::format("https://web.example/us/{}/charts/36", platform), 404, "");
  }

  std::unique_ptr<ServiceHost> open() {
    return runTask(ServiceHost::open(
        {.library = folder_.file().replace_filename("data") / "default.store",
         .endpoints = {"https://store.example", "https://web.example", "https://prices.example"},
         .timeZone = [](Instant) { return 0s; },
         .http = http_,
         .clock = clock_,
         .settings = settings_,
         .notifications = notifications_,
         .random = [] { return 0.5; },
         .storefront = [] { return "us"; },
         .log = [this](const std::string& line) { log_ += line + '\n'; },
         .isMetered = [this] { return isMetered_; }}));
  }

  /// A host with a watched app that is found free now.
  std::unique_ptr<ServiceHost> openWithFreeApp() {
    auto host = open();
    WatchedApp app = watched(7);
    app.alertOnFree = true;
    runTask(host->store().change(watchApps, std::vector{app}));
    http_.answer("https://store.example/lookup?id=7&country=us", 200,
                 R"({"results":[{"trackId":7,"trackName":"Paperfold","price":0}]})");
    return host;
  }

  KeptNotifications notifications_;
  std::string log_;
  bool isMetered_ = false;
};

TEST_F(ServiceHostTest, RecordsImportsChecksAndNotifiesUntilItIsShutDown) {
  const auto host = openWithFreeApp();
  answerCharts();
  answerPrices(404);
  host->start();
  waitFor([&] { return http_.requests().size() == 5; });  // three chart pages, two price files
  host->checkPrices();
  waitFor([&] { return !notifications_.titles.empty(); });
  EXPECT_EQ(notifications_.titles, "Paperfold 7 is now free;");

  // An hour later the charts are tried again; price data only after twenty hours.
  waitFor([&] { return clock_.waits().size() >= 3; });
  answerCharts();
  clock_.advance(1h);
  waitFor([&] { return http_.requests().size() >= 9; });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "");
}

TEST_F(ServiceHostTest, LooksMyAppsUpAndAgainWhereTheStoreWasNotReached) {
  settings_.set("recordCharts", "false");
  settings_.set("importPriceData", "false");
  const auto host = open();
  runTask(host->store().change(addOwnedApps, std::vector{owned(8)}));
  const std::string lookup = "https://store.example/lookup?id=8&country=us";
  http_.fail(lookup, NetworkError(NetworkError::Kind::notConnected, "Not connected."));
  host->start();
  waitFor([&] { return http_.requests().size() == 1 && clock_.waits().size() >= 4; });
  isMetered_ = true;
  clock_.advance(1h);
  EXPECT_EQ(http_.requests().size(), 1U);
  isMetered_ = false;
  http_.answer(lookup, 200, R"({"results":[]})");
  clock_.advance(1h);
  waitFor([&] { return runTask(host->store().read(ownedApps)).front().isUnavailable == true; });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "");
}

TEST_F(ServiceHostTest, AsksNothingByItselfBeforeThePause) {
  const auto host = open();
  host->start(5s);
  waitFor([&] { return host->monitor().nextCheck().has_value(); });
  clock_.advance(4s);
  EXPECT_EQ(http_.requests().size(), 0U);
  answerCharts();
  answerPrices(404);
  clock_.advance(1s);
  waitFor([&] { return http_.requests().size() == 5; });
  runTask(host->shutDown());
}

TEST_F(ServiceHostTest, PriceDataIsLookedForWhereSomebodyLooksAndWhenSomebodyWantsIt) {
  const std::string prices = "https://prices.example/file/quillbase-prices/v1/";
  const auto answer = [&](std::string_view country, int status, std::string body) {
    http_.answer(prices + "manifest.json", 404, "");
    http_.answer(fmt::format("{}changes-{}.json.gz", prices, country), status, std::move(body));
  };
  const std::string file =
      R"({"schema":1,"generatedAt":"2026-03-20T03:00:00Z","storefront":{"apps":[)"
      R"({"a":"7","n":"Paperfold","c":"USD","p":[{"d":"2026-03-02","v":4},{"d":"2026-03-12","v":2}]}]}})";
  const auto dealsIn = [](ServiceHost& host, const std::string& country) {
    return runTask(host.store().read(dealCount, DealQuery{.country = country, .platform = {}}));
  };
  settings_.set("recordCharts", "false");
  const auto host = open();
  answer("us", 200, file);
  const Instant start = clock_.now();
  host->start();
  waitFor([&] { return host->imports().stateOf("us").next == start + 20h; });
  EXPECT_EQ(dealsIn(*host, "us"), 1);
  EXPECT_EQ(host->imports().stateOf("us"), (PriceDataState{.next = start + 20h}));
  EXPECT_EQ(host->imports().stateOf("de"), PriceDataState());

  answer("de", 404, "");
  host->followPriceData("de");
  waitFor([&] { return !host->imports().stateOf("de").failure.empty(); });
  EXPECT_EQ(host->imports().stateOf("de").failure,
            "No published price data at " + prices + "changes-de.json.gz.");
  EXPECT_EQ(log_, "") << "nothing published is nothing to tell";

  // Nothing is due, but the user wants it: what is damaged leaves what is there.
  http_.answer(prices + "manifest.json", 404, "");
  http_.answer(prices + "changes-us.json.gz", 200, "{");
  http_.answer(prices + "changes-de.json.gz", 200, file);
  host->checkPriceData();
  EXPECT_TRUE(host->imports().isRunning());
  EXPECT_TRUE(host->imports().stateOf("us").isReading);
  waitFor([&] { return !host->imports().isRunning(); });
  EXPECT_EQ(host->imports().stateOf("us").failure,
            "The published price data for 'us' could not be read.");
  EXPECT_EQ(host->imports().stateOf("de"), (PriceDataState{.next = start + 20h}));
  EXPECT_EQ(dealsIn(*host, "us"), 1);
  EXPECT_EQ(dealsIn(*host, "de"), 1);
  runTask(host->shutDown());
}

TEST_F(ServiceHostTest, UsesAMeteredNetworkOnlyWhereItIsToldTo) {
  isMetered_ = true;
  const auto host = open();
  host->start();
  waitFor([&] { return clock_.waits().size() >= 3; });
  EXPECT_EQ(http_.requests().size(), 0U);
  settings_.set("checkOnMetered", "true");
  answerCharts();
  answerPrices(404);
  clock_.advance(1h);
  waitFor([&] { return http_.requests().size() == 5; });
  runTask(host->shutDown());
}

TEST_F(ServiceHostTest, ChecksWhatIsOverdueHalfAMinuteAfterWaking) {
  isMetered_ = true;  // nothing but the check
  const auto host = openWithFreeApp();
  host->start();
  waitFor([&] { return host->monitor().nextCheck().has_value(); });
  settings_.set("checkOnMetered", "true");
  clock_.setNow(clock_.now() + 9h);
  host->noteWake();
  clock_.advance(29s);
  EXPECT_EQ(http_.requests().size(), 0U);
  clock_.advance(1s);
  waitFor([&] { return !notifications_.titles.empty(); });
  runTask(host->shutDown());
}

TEST_F(ServiceHostTest, ItsEndWaitsForNoNotificationService) {
  notifications_.hangs = true;
  const auto host = openWithFreeApp();
  host->checkPrices();
  waitFor([&] { return !notifications_.titles.empty(); });
  runTask(host->shutDown());
  EXPECT_TRUE(log_.ends_with("(not shown: Quillet was ending)\n")) << log_;
}

TEST_F(ServiceHostTest, TellsOfAPriceServerThatFails) {
  const auto host = open();
  answerCharts();
  answerPrices(500);
  host->start();
  waitFor([&] { return http_.requests().size() == 5 && !log_.empty(); });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "Price data: The price data server returned HTTP 500.\n");
}

TEST_F(ServiceHostTest, RemovesAlertsThatAreKeptNoLonger) {
  settings_.write(
      {{"recordCharts", "false"}, {"importPriceData", "false"}, {"keepAlertsDays", "30"}});
  const auto host = open();
  const auto add = [&](std::chrono::hours age) {
    const AlertRecord alert{.trackId = 1,
                            .country = "us",
                            .appName = "Paperfold",
                            .kindRaw = "wentFree",
                            .date = clock_.now() - age};
    runTask(host->store().change(addAlerts, std::vector{alert}));
  };
  const auto left = [&] {
    handlePendingEvents();
    return runTask(host->store().read(alerts)).size();
  };
  const auto choose = [&](const char* days) {
    settings_.set("keepAlertsDays", days);
    host->takeSettings({"keepAlertsDays"});
  };
  add(29h * 24);
  add(31h * 24);
  host->start();
  waitFor([&] { return left() == 1; });
  choose("1");
  choose("30");
  clock_.advance(1min);
  EXPECT_EQ(left(), 1U) << "a choice that was passed";
  choose("28");
  clock_.advance(1min);
  waitFor([&] { return left() == 0; });
  add(27h * 24 + 1h);
  clock_.advance(24h);
  waitFor([&] { return left() == 0; });
  runTask(host->shutDown());
}

TEST_F(ServiceHostTest, FollowsItsSettings) {
  settings_.write(
      {{"recordCharts", "false"}, {"importPriceData", "false"}, {"priceCheckIntervalHours", "4"}});
  const auto host = open();
  const Instant now = clock_.now();
  host->start();
  waitFor([&] { return host->monitor().nextCheck() == now + 4h; });
  EXPECT_EQ(http_.requests().size(), 0U) << "neither charts nor price data";

  clock_.advance(30min);
  settings_.set("priceCheckIntervalHours", "1");
  host->takeSettings({"priceCheckIntervalHours"});
  waitFor([&] { return host->monitor().nextCheck() == now + 1h; });
  answerPrices(404);
  settings_.set("importPriceData", "true");
  host->takeSettings({"importPriceData"});
  waitFor([&] { return http_.requests().size() == 2; });
  answerCharts();
  settings_.set("recordCharts", "true");
  host->takeSettings({"recordCharts"});
  waitFor([&] { return http_.requests().size() == 5; });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "");
}

}  // namespace
}  // namespace quillet
