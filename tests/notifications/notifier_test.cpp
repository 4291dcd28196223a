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
#include "notifications/private_bus.h"
#include "notifications/stand_in_service.h"
#include "support/event_loop.h"
#include "support/memory_settings.h"

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
    QObject::connect(&notifier_, &Notifier::trackIdPending, &context_, [this](const auto& token) {
      clicks_.push_back(std::to_string(notifier_.takePendingTrackId().value_or(0)) + token);
    });
  }

  void startService() { service_ = std::make_unique<StandInService>(bus_.service); }

  void post(std::vector<PriceAlertEvent> events) { runTask(notifier_.post(std::move(events))); }

  /// Goes on when all that the service, and the bus, have said so far was heard.
  void hear() {
    for (const QDBusConnection& connection : {bus_.service, bus_.application}) {
      connection.interface()->isServiceRegistered(QStringLiteral("x.y"));
    }
    handlePendingEvents();
  }

  PrivateBus bus_;
  MemorySettings settings_{{{"notificationsEnabled", "true"}}};
  FreedesktopNotifications center_{bus_.application, settings_};
  Lines log_;
  Notifier notifier_{center_, [this](const std::string& line) { log_.push_back(line); }};
  QObject context_;
  Lines clicks_;
  std::unique_ptr<StandInService> service_;
};

TEST(NotificationOf, AnEventIsKnownByItsIdentity) {
  EXPECT_EQ(notificationOf(drop(7)).identifier, "alert-7--$1.99-priceDrop");
}

TEST_F(NotifierTest, ShowsEventsInOrderAndReplacesWhatIsShownOfTheSame) {
  startService();
  post({drop(1), drop(2), drop(1, "$0.99"), drop(2)});
  post({drop(1)});
  EXPECT_EQ(service_->shown, (Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99",
                                    "2<0> Paperfold dropped in price | $4.99 → $1.99",
                                    "3<0> Paperfold dropped in price | $4.99 → $0.99",
                                    "2<2> Paperfold dropped in price | $4.99 → $1.99",
                                    "1<1> Paperfold dropped in price | $4.99 → $1.99"}));
  EXPECT_EQ(service_->details,
            "Quillet, quillet | default;Show App;show-app;Show App | "
            "desktop-entry=quillet;sound-name=message-new-instant | -1");
  EXPECT_EQ(service_->capabilitiesRead, 1);
  EXPECT_EQ(log_, Lines{});
}

TEST_F(NotifierTest, AClosedOneIsNotReplaced) {
  startService();
  post({drop(1)});
  Q_EMIT service_->NotificationClosed(1, 2);
  hear();
  service_->closesAtOnce = true;
  post({drop(1)});
  hear();
  post({drop(1)});
  EXPECT_EQ(service_->shown, (Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99",
                                    "2<0> Paperfold dropped in price | $4.99 → $1.99",
                                    "3<0> Paperfold dropped in price | $4.99 → $1.99"}));
}

TEST_F(NotifierTest, AClickPointsAtItsApp) {
  startService();
  post({drop(11), drop(22)});
  const struct {
    const char* situation;
    uint id;
    const char* token;
    const char* action;
    Lines clicks;
  } rows[] = {
      {"on the notification", 1, "", "default", {"11"}},
      {"on the button, from a desktop that hands out tokens", 2, " t-1", "show-app", {"22 t-1"}},
      {"on something else", 1, "", "snooze", {}},
      {"on another application's", 9, " t-2", "default", {}},
  };
  for (const auto& row : rows) {
    clicks_.clear();
    Q_EMIT service_->ActivationToken(row.id, QLatin1String(row.token));
    Q_EMIT service_->ActionInvoked(row.id, QLatin1String(row.action));
    hear();
    EXPECT_EQ(clicks_, row.clicks) << row.situation;
  }
  EXPECT_EQ(notifier_.pendingTrackId(), std::nullopt);
}

TEST_F(NotifierTest, WritesWhatTheServiceCanRead) {
  PriceAlertEvent event = drop(1, "<b>&amp; \"'");
  event.name = "Fold & <Co>";
  const struct {
    QStringList capabilities;
    const char* shown;
    const char* actions;
  } rows[] = {
      {{QStringLiteral("body-markup"), QStringLiteral("actions")},
       "1<0> Fold & <Co> dropped in price | $4.99 → &lt;b&gt;&amp;amp; \"'",
       "Quillet, quillet | default;"},
      {{QStringLiteral("body")},
       "1<0> Fold & <Co> dropped in price | $4.99 → <b>&amp; \"'",
       "Quillet, quillet |  |"},
  };
  for (const auto& row : rows) {
    service_.reset();
    startService();
    service_->capabilities = row.capabilities;
    hear();
    post({event});
    EXPECT_EQ(service_->shown, Lines{row.shown});
    EXPECT_TRUE(service_->details.starts_with(row.actions)) << service_->details;
  }
}

TEST_F(NotifierTest, ASlowServiceHoldsNobodyUpAndStillReplaces) {
  startService();
  service_->isSlow = true;
  const Task<> first = notifier_.post({drop(1), drop(2)});
  const Task<> second = notifier_.post({drop(1)});
  waitFor([&] { return service_->heldBack() == 1; });
  EXPECT_FALSE(first.isReady());
  EXPECT_EQ(service_->shown.size(), 1U);
  service_->isSlow = false;
  service_->release();
  waitFor([&] { return first.isReady() && second.isReady(); });
  std::ranges::sort(service_->shown);
  EXPECT_EQ(service_->shown, (Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99",
                                    "1<1> Paperfold dropped in price | $4.99 → $1.99",
                                    "2<0> Paperfold dropped in price | $4.99 → $1.99"}));
}

TEST_F(NotifierTest, WithoutAServiceEachEventIsALineOfTheLog) {
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::notDetermined);
  PriceAlertEvent odd = drop(2);
  odd.name = "Two\nlines\x1b[2J";
  post({drop(1), odd});
  EXPECT_EQ(log_, (Lines{"Paperfold dropped in price: $4.99 → $1.99",
                         "Two lines[2J dropped in price: $4.99 → $1.99"}));
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::unavailable);
  FreedesktopNotifications noBus(QDBusConnection(QStringLiteral("no such bus")), settings_);
  EXPECT_EQ(runTask(noBus.authorizationStatus()), AuthorizationStatus::unavailable);
  runTask(notifier_.requestAuthorization());
  EXPECT_EQ(notifier_.lastPermissionError(), "this desktop has no notification service");

  startService();
  runTask(notifier_.requestAuthorization());
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::authorized);
  EXPECT_EQ(notifier_.lastPermissionError(), std::nullopt);
}

TEST_F(NotifierTest, ShowsNothingToAUserWhoDidNotSayYes) {
  startService();
  settings_.set("notificationsEnabled", "");
  post({drop(3)});
  EXPECT_EQ(notifier_.authorizationStatus(), AuthorizationStatus::notDetermined);
  settings_.set("notificationsEnabled", "false");
  post({drop(1)});
  EXPECT_TRUE(notifier_.authorizationDenied());
  runTask(notifier_.requestAuthorization());
  EXPECT_EQ(settings_.text("notificationsEnabled"), "true");
  post({drop(2)});
  EXPECT_FALSE(notifier_.authorizationDenied());
  EXPECT_EQ(service_->shown, Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99"});
  EXPECT_EQ(log_, Lines{});
}

TEST_F(NotifierTest, ARequestThatFailsStopsNoOther) {
  startService();
  service_->refused = QStringLiteral("Quartz dropped in price");
  PriceAlertEvent refused = drop(1);
  refused.name = "Quartz";
  post({refused, drop(2)});
  EXPECT_EQ(service_->shown, Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99"});
  EXPECT_EQ(log_, Lines{"Quartz dropped in price: $4.99 → $1.99 (not shown: the notification "
                        "service says: no <more> room)"});
}

TEST_F(NotifierTest, AnotherServiceKnowsNothingOfWhatTheFirstShowed) {
  startService();
  post({drop(1), drop(2)});
  service_.reset();
  startService();
  hear();
  post({drop(1)});
  Q_EMIT service_->ActionInvoked(2, QStringLiteral("default"));
  hear();
  EXPECT_EQ(service_->shown, Lines{"1<0> Paperfold dropped in price | $4.99 → $1.99"});
  EXPECT_EQ(clicks_, Lines{});
}

}  // namespace
}  // namespace quillet
