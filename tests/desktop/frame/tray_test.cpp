// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/tray.h"

#include <gtest/gtest.h>

#include "desktop/services/service_host.h"
#include "desktop/support/view_parts.h"
#include "library/library_folder.h"
#include "net/run_task.h"
#include "support/event_loop.h"
#include "support/pictures.h"

namespace quillet {
namespace {

AlertRecord dropOf(std::int64_t trackId, std::string name) {
  return {.trackId = trackId,
          .country = "us",
          .appName = std::move(name),
          .kindRaw = "priceDrop",
          .date = dayAndSecond(static_cast<int>(trackId))};
}

class NoNotifications final : public NotificationCenter {
 public:
  Task<AuthorizationStatus> authorizationStatus(StopToken /*stop*/) override {
    co_return AuthorizationStatus::unavailable;
  }
  Task<> requestAuthorization(StopToken /*stop*/) override { co_return; }
  Task<> add(NotificationRequest /*request*/, StopToken /*stop*/) override { co_return; }
  [[nodiscard]] std::vector<std::string> shown() const override { return {}; }
  void withdraw(const std::string& /*identifier*/) override {}
};

class TrayTest : public LibraryServiceTest {
 protected:
  void SetUp() override {
    WatchedApp app = watched(1);
    app.lastCheckedAt = clock_.now() - std::chrono::minutes(12);
    change(watchApps, std::vector{app});
    change(addAlerts, std::vector{dropOf(1, "Paperfold"), dropOf(2, "R&D Notes")});
    parts_.library.use(host_->store());
    tray_.use(*host_);
    // Qt warns of a platform without a tray.
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    tray_.show();
    qInstallMessageHandler(before);
    settle();
  }
  void TearDown() override {
    settle();
    runTask(host_->shutDown());
  }

  void change(auto operation, auto... arguments) {
    runTask(host_->store().change(std::move(operation), std::move(arguments)...));
  }
  void exec(const char* sql) {
    change([sql](WriteTransaction& transaction) { return transaction.database.exec(sql); });
    Q_EMIT parts_.library.changedElsewhere();
    settle();
  }
  void settle() {
    for (int i = 0; i < 3; ++i) {
      runTask(host_->store().read([](SQLite::Database&) { return 0; }));
      handlePendingEvents();
    }
  }

  /// What is seen of a menu: "Watchlist, Settings…".
  static std::string entries(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions())
      if (action->isVisible() && !action->isSeparator()) texts.append(action->text());
    return texts.join(QStringLiteral(", ")).toStdString();
  }
  QMenu& unread() { return *tray_.menu().actions().front()->menu(); }

  static std::chrono::seconds utc(Instant /*when*/) { return std::chrono::seconds(0); }

  NoNotifications notifications_;
  std::unique_ptr<ServiceHost> host_ = runTask(ServiceHost::open(
      {.library = folder_.file().replace_filename("data") / "default.store",
       .endpoints = {"https://store.example", "https://web.example", "https://prices.example"},
       .timeZone = utc,
       .http = http_,
       .clock = clock_,
       .settings = settings_,
       .notifications = notifications_,
       .random = [] { return 0.5; },
       .storefront = [] { return "us"; },
       .log = [](const std::string&) {}}));
  ViewParts parts_{http_, clock_, settings_};
  Tray tray_{parts_.library, clock_, utc, [] { return std::string("us"); }};
};

TEST_F(TrayTest, TellsOfUnreadAlertsAndGoesOnAfterAReadingThatFailed) {
  EXPECT_EQ(entries(unread()), "R&&D Notes, Paperfold");
  const char* all =
      "2 unread alerts, Check Prices Now, Checked 12 min ago, Watchlist, Deals, Open Quillet, "
      "Settings…, Quit Quillet";
  EXPECT_EQ(entries(tray_.menu()), all);
  exec("ALTER TABLE ZALERTRECORD RENAME TO ELSEWHERE");
  EXPECT_EQ(entries(tray_.menu()), all);
  exec("ALTER TABLE ELSEWHERE RENAME TO ZALERTRECORD");
  exec("UPDATE ZALERTRECORD SET ZISREAD = 1 WHERE ZTRACKID = 1");
  EXPECT_EQ(entries(unread()), "R&&D Notes");
  EXPECT_EQ(tray_.menu().actions().front()->text(), QStringLiteral("1 unread alert"));
}

TEST_F(TrayTest, LooksAsBefore) {
  QMenu& menu = tray_.menu();
  menu.popup({});
  handlePendingEvents();
  EXPECT_TRUE(looksLike(QStringLiteral("tray-menu"), menu.grab().toImage()));
  menu.hide();
}

}  // namespace
}  // namespace quillet
