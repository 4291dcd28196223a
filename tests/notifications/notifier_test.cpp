// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "notifications/notifier.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <algorithm>
#include <memory>

#include "net/run_task.h"
#include "notifications/freedesktop_notifications.h"
#include "notifications/stand_in_service.h"
#include "support/event_loop.h"
#include "support/memory_settings.h"
#include "support/private_bus.h"

namespace quillet {
namespace {

using Lines = std::vector<std::string>;

PriceAlertEvent drop(std::int64_t trackId, std::string newPrice = "$1.99") {
  return {.trackId = trackId,
          .name = "Paperfold",
          .kind = AlertKind::priceDrop,
          .oldPriceText = "$4.99",
          .newPriceText = std::move(newPrice)};
}

class NotifierTest : public testing::Test {
 protected:
  NotifierTest() {
    center_.useBus(bus_.application);
    startService();
    QObject::connect(&notifier_, &Notifier::storeWanted, &context_,
                     [this](std::int64_t trackId, const auto& token) {
                       clicks_.push_back("store " + std::to_string(trackId) + token);
                     });
    QObject::connect(&notifier_, &Notifier::trackIdPending, &context_, [this](const auto& token) {
      clicks_.push_back(std::to_string(notifier_.takePendingTrackId().value_or(0)) + token);
    });
  }

  /// Another one in the place of that which runs.
  void startService() {
    service_.reset();
    service_ = std::make_unique<StandInService>(bus_.service);
  }

  void post(std::vector<PriceAlertEvent> events) { runTask(notifier_.post(std::move(events), {})); }

  /// Goes on when all that the service, and the bus, have said so far was heard.
  void hear() {
    for (const QDBusConnection& connection : {bus_.service, bus_.application}) {
      connection.interface()->isServiceRegistered(QStringLiteral("x.y"));
    }
    handlePendingEvents();
  }

  /// What is pending, with its token, when the service has told of a click.
  Lines clicksAfter(uint id, const char* action, const char* token = "") {
    Q_EMIT service_->ActivationToken(id, QLatin1String(token));
    Q_EMIT service_->ActionInvoked(id, QLatin1String(action));
    hear();
    return std::exchange(clicks_, {});
  }

  PrivateBus bus_;
  MemorySettings settings_{{{"notificationsEnabled", "true"}}};
  FreedesktopNotifications center_{settings_};
  Lines log_;
  Notifier notifier_{center_, [this](const std::string& line) { log_.push_back(line); }};
  QObject context_;
  Lines clicks_;
  std::unique_ptr<StandInService> service_;
};

TEST_F(NotifierTest, ShowsEventsInOrderAndReplacesWhatIsShownOfTheSame) {
  post({drop(1), drop(2), drop(1, "$0.99"), drop(2)});
  post({drop(1)});
  EXPECT_EQ(service_->shown, (Lines{"1<0>", "2<0>", "3<0>", "2<2>", "1<1>"}));
  EXPECT_EQ(log_, Lines{});
}

TEST_F(NotifierTest, AClosedOneIsNotReplaced) {
  post({drop(1)});
  Q_EMIT service_->NotificationClosed(1, 2);
  hear();
  service_->closesAtOnce = true;
  post({drop(1)});
  hear();
  post({drop(1)});
  EXPECT_EQ(service_->shown, (Lines{"1<0>", "2<0>", "3<0>"}));
}

TEST_F(NotifierTest, TakesAwayWhatWasRead) {
  post({drop(1), drop(2), drop(3)});
  runTask(
      notifier_.tell({.identifier = "other", .title = "Other", .body = {}, .userInfo = {}}, {}));
  AlertRecord unread;
  unread.trackId = 2;
  unread.kindRaw = "priceDrop";
  unread.newPriceText = "$1.99";
  std::vector<std::string> shown = notifier_.shown();
  std::erase(shown, notificationOf(drop(3)).identifier);  // it came while the alerts were read
  service_->shown.clear();
  notifier_.withdrawRead(shown, {unread});
  hear();
  EXPECT_EQ(service_->shown, Lines{"close 1"});
  post({drop(1)});
  EXPECT_EQ(service_->shown.back(), "5<0>");
}

TEST_F(NotifierTest, AClickPointsAtItsApp) {
  post({drop(11), drop(22)});
  EXPECT_EQ(clicksAfter(1, "default"), Lines{"11"});
  EXPECT_EQ(clicksAfter(2, "show-app", " t-1"), Lines{"22 t-1"}) << "some desktops have tokens";
  EXPECT_EQ(clicksAfter(2, "open-in-store", " t-1"), Lines{"store 22 t-1"});
  EXPECT_EQ(clicksAfter(1, "snooze"), Lines{});
  EXPECT_EQ(clicksAfter(9, "default", " t-2"), Lines{}) << "another application's";
  EXPECT_EQ(notifier_.pendingTrackId(), std::nullopt);
}

TEST_F(NotifierTest, WritesWhatTheServiceCanRead) {
  PriceAlertEvent event = drop(1, "<b>&amp; \"'");
  event.name = "Fold & <Co>";
  const auto shownBy = [&](const QStringList& capabilities) {
    startService();
    service_->capabilities = capabilities;
    hear();
    post({event});
    return service_->last;
  };
  EXPECT_EQ(shownBy({QStringLiteral("body-markup")}),
            "Fold & <Co> dropped in price | $4.99 → &lt;b&gt;&amp;amp; \"' | Quillet, quillet |  | "
            "quillet | -1");
  EXPECT_EQ(shownBy({QStringLiteral("actions")}),
            "Fold & <Co> dropped in price | $4.99 → <b>&amp; \"' | Quillet, quillet | "
            "default;Show App;show-app;Show App;open-in-store;Open in App Store | quillet | -1");
  event.kind = AlertKind::newVersion;
  EXPECT_EQ(shownBy({QStringLiteral("actions")}),
            "Fold & <Co> was updated | A new version is available. | Quillet, quillet | "
            "default;Show App;show-app;Show App | quillet | -1")
      << "a version is nothing to buy";
}

TEST_F(NotifierTest, ASlowServiceHoldsNobodyUpAndStillReplaces) {
  service_->isSlow = true;
  const Task<> first = notifier_.post({drop(1), drop(2)}, {});
  const Task<> second = notifier_.post({drop(1)}, {});
  waitFor([&] { return service_->heldBack() == 1; });
  EXPECT_FALSE(first.isReady());
  EXPECT_EQ(service_->shown, Lines{"1<0>"});
  service_->isSlow = false;
  service_->release();
  waitFor([&] { return first.isReady() && second.isReady(); });
  std::ranges::sort(service_->shown);
  EXPECT_EQ(service_->shown, (Lines{"1<0>", "1<1>", "2<0>"}));
}

TEST_F(NotifierTest, AStopWaitsForNoServiceAndNoBus) {
  service_->isSlow = true;
  const StopSource stop;
  const Task<> first = notifier_.post({drop(1), drop(2)}, stop.token());
  const Task<> second = notifier_.post({drop(3)}, stop.token());
  waitFor([&] { return service_->heldBack() == 1; });
  StopSource(stop).requestStop();
  waitFor([&] { return first.isReady() && second.isReady(); });
  const std::string line =
      "Paperfold dropped in price: $4.99 → $1.99 (not shown: Quillet was ending)";
  EXPECT_EQ(log_, (Lines{line, line, line}));

  FreedesktopNotifications noBusYet(settings_);
  Notifier early(noBusYet, [this](const std::string& text) { log_.push_back(text); });
  const StopSource soon;
  const Task<> asking = early.post({drop(1)}, soon.token());
  handlePendingEvents();
  EXPECT_FALSE(asking.isReady());
  StopSource(soon).requestStop();
  waitFor([&] { return asking.isReady(); });
  EXPECT_EQ(log_.size(), 4U);
}

TEST_F(NotifierTest, WhatCameBeforeTheBusIsKnownIsShownThen) {
  FreedesktopNotifications late(settings_);
  Notifier notifier(late, [this](const std::string& text) { log_.push_back(text); });
  const Task<> first = notifier.post({drop(1)}, {});
  const Task<> second = notifier.refreshAuthorization({});
  late.useBus(bus_.application);
  waitFor([&] { return first.isReady() && second.isReady(); });
  EXPECT_EQ(service_->shown, Lines{"1<0>"});
  EXPECT_EQ(log_, Lines{});
}

TEST_F(NotifierTest, WithoutAServiceEachEventIsALineOfTheLog) {
  service_.reset();
  PriceAlertEvent odd = drop(2);
  odd.name = "Two\nlines\x1b[2J";
  post({drop(1), odd});
  EXPECT_EQ(log_, (Lines{"Paperfold dropped in price: $4.99 → $1.99",
                         "Two lines[2J dropped in price: $4.99 → $1.99"}));
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::unavailable);
  FreedesktopNotifications noBus(settings_);
  noBus.useBus(QDBusConnection(QStringLiteral("no such bus")));
  EXPECT_EQ(runTask(noBus.authorizationStatus({})), AuthorizationStatus::unavailable);
  runTask(notifier_.requestAuthorization({}));
  EXPECT_EQ(notifier_.lastPermissionError(), "this desktop has no notification service");
  startService();
  runTask(notifier_.requestAuthorization({}));
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::authorized);
  EXPECT_EQ(notifier_.lastPermissionError(), std::nullopt);
}

TEST_F(NotifierTest, ShowsNothingToAUserWhoDidNotSayYes) {
  settings_.set("notificationsEnabled", "");
  post({drop(3)});
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::notDetermined);
  settings_.set("notificationsEnabled", "false");
  post({drop(1)});
  EXPECT_TRUE(notifier_.authorizationDenied());
  runTask(notifier_.requestAuthorization({}));
  EXPECT_EQ(settings_.text("notificationsEnabled"), "true");
  post({drop(2)});
  EXPECT_EQ(service_->shown, Lines{"1<0>"});
  EXPECT_EQ(log_, Lines{});
}

TEST_F(NotifierTest, ARequestThatFailsStopsNoOther) {
  service_->refused = QStringLiteral("Quartz dropped in price");
  PriceAlertEvent refused = drop(1);
  refused.name = "Quartz";
  post({refused, drop(2)});
  EXPECT_EQ(service_->shown, Lines{"1<0>"});
  EXPECT_EQ(log_, Lines{"Quartz dropped in price: $4.99 → $1.99 (not shown: the notification "
                        "service says: no <more> room)"});
}

TEST_F(NotifierTest, AnotherServiceKnowsNothingOfWhatTheFirstShowed) {
  post({drop(1), drop(2)});
  startService();
  hear();
  post({drop(1)});
  EXPECT_EQ(service_->shown, Lines{"1<0>"});
  EXPECT_EQ(clicksAfter(2, "default"), Lines{});
}

}  // namespace
}  // namespace quillet
