// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/service_host.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"
#include "support/hand_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr const char* kPages = "https://web.example/us/{}/charts/36";

class KeptNotifications final : public NotificationCenter {
 public:
  Task<AuthorizationStatus> authorizationStatus() override {
    co_return AuthorizationStatus::authorized;
  }
  Task<> requestAuthorization() override { co_return; }
  Task<> add(NotificationRequest request) override {
    titles.push_back(request.title);
    co_return;
  }

  std::vector<std::string> titles;
};

class ServiceHostTest : public testing::Test {
 protected:
  ServiceHostTest() { answerCharts(); }

  void answerPrices(int status) {
    const std::string prices = "https://prices.example/file/quillbase-prices/v1/";
    http_.answer(prices + "manifest.json", 404, "");
    http_.answer(prices + "changes-us.json.gz", status, "");
  }

  void answerCharts() {
    for (const std::string_view platform : {"mac", "iphone", "ipad"})
      http_.answer(fmt::format(fmt::runtime(kPages), platform), 404, "");
  }

  std::unique_ptr<ServiceHost> open() {
    return runTask(ServiceHost::open(
        {folder_.filePath(QStringLiteral("data/default.store")).toStdString(),
         {"https://store.example", "https://web.example", "https://prices.example"},
         {},
         [](Instant) { return 0s; },
         http_,
         clock_,
         settings_,
         notifications_,
         [] { return 0.5; },
         [] { return "us"; },
         [this](const std::string& line) { log_ += line + '\n'; }}));
  }

  QTemporaryDir folder_;
  HandClock clock_{std::chrono::sys_days{std::chrono::year{2026} / 3 / 11}};
  ScriptedHttpClient http_;
  MemorySettings settings_;
  KeptNotifications notifications_;
  std::string log_;
};

TEST_F(ServiceHostTest, RecordsImportsChecksAndNotifiesUntilItIsShutDown) {
  const auto host = open();
  WatchedApp app = watched(7);
  app.alertOnFree = true;
  runTask(host->store().change(watchApps, std::vector{app}));

  answerPrices(404);
  host->start();
  waitFor([&] { return http_.requests().size() == 5; });  // three chart pages, two price files
  http_.answer("https://store.example/lookup?id=7&country=us", 200,
               R"({"results":[{"trackId":7,"trackName":"Paperfold","price":0}]})");
  host->checkPrices();
  waitFor([&] { return !notifications_.titles.empty(); });
  EXPECT_EQ(notifications_.titles, std::vector<std::string>{"Paperfold 7 is now free"});

  // An hour later the charts are tried again; price data only after twenty hours.
  waitFor([&] { return clock_.waits().size() >= 3; });
  answerCharts();
  const std::size_t before = http_.requests().size();
  clock_.advance(1h);
  waitFor([&] { return http_.requests().size() >= before + 3; });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "");
}

TEST_F(ServiceHostTest, ASecondOneIsRefusedAndOneAfterItIsNot) {
  auto host = open();
  EXPECT_THROW(open(), DatabaseError);
  runTask(host->shutDown());
  host.reset();
  host = open();
  answerPrices(500);
  host->start();
  waitFor([&] { return http_.requests().size() == 5 && !log_.empty(); });
  runTask(host->shutDown());
  EXPECT_EQ(log_, "Price data: The price data server returned HTTP 500.\n");
}

}  // namespace
}  // namespace quillet
