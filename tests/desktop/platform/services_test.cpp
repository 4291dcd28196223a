// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <memory>

#include "desktop/platform/metered_network.h"
#include "desktop/platform/stand_in_services.h"
#include "desktop/platform/tray_host.h"
#include "desktop/platform/wake_watch.h"
#include "support/event_loop.h"
#include "support/private_bus.h"

namespace quillet {
namespace {

class PlatformServicesTest : public testing::Test {
 protected:
  /// Goes on when all that the services, and the bus, have said so far was heard.
  void hear() {
    for (int there = 0; there < 2; ++there) {
      for (const QDBusConnection& connection : {bus_.application, bus_.service}) {
        connection.interface()->isServiceRegistered(QStringLiteral("x.y"));
        handlePendingEvents();
      }
    }
  }

  PrivateBus bus_;
  QObject context_;
};

TEST_F(PlatformServicesTest, ATrayComesGoesAndReturns) {
  TrayHost tray;
  int changes = 0;
  QObject::connect(&tray, &TrayHost::changed, &context_, [&] { ++changes; });
  tray.useBus(bus_.application);
  hear();
  EXPECT_FALSE(tray.isThere());
  auto watcher = std::make_unique<StandInWatcher>(bus_.service, false);
  hear();
  EXPECT_FALSE(tray.isThere()) << "nobody would show what the watcher is told of";
  watcher->hasHost = true;
  watcher->signal(QStringLiteral("org.kde.StatusNotifierWatcher"),
                  QStringLiteral("StatusNotifierHostRegistered"));
  hear();
  EXPECT_TRUE(tray.isThere());
  watcher.reset();
  hear();
  EXPECT_FALSE(tray.isThere());
  watcher = std::make_unique<StandInWatcher>(bus_.service, true);
  hear();
  EXPECT_TRUE(tray.isThere());
  EXPECT_EQ(changes, 3);
}

TEST_F(PlatformServicesTest, ATrayThatIsThereAlreadyIsFound) {
  const StandInWatcher watcher(bus_.service, true);
  TrayHost tray;
  tray.useBus(bus_.application);
  hear();
  EXPECT_TRUE(tray.isThere());
  TrayHost none;
  none.useBus(QDBusConnection(QStringLiteral("nowhere")));
  EXPECT_FALSE(none.isThere());
}

TEST_F(PlatformServicesTest, FollowsWhetherTheNetworkIsMetered) {
  MeteredNetwork network;
  int changes = 0;
  QObject::connect(&network, &MeteredNetwork::changed, &context_, [&] { ++changes; });
  network.useBus(bus_.application);
  hear();
  EXPECT_FALSE(network.isMetered()) << "no manager";
  auto manager = std::make_unique<StandInManager>(bus_.service, 1);
  hear();
  EXPECT_TRUE(network.isMetered());
  struct {
    uint value;
    bool isMetered;
  } const rows[] = {{0, false}, {3, true}, {2, false}, {4, false}, {1, true}};
  for (const auto& row : rows) {
    manager->set(row.value);
    hear();
    EXPECT_EQ(network.isMetered(), row.isMetered) << row.value;
  }
  manager.reset();
  hear();
  EXPECT_FALSE(network.isMetered()) << "the manager has gone";
  EXPECT_EQ(changes, 6);
}

TEST_F(PlatformServicesTest, TellsOfWakingAlone) {
  WakeWatch watch;
  int woke = 0;
  QObject::connect(&watch, &WakeWatch::woke, &context_, [&] { ++woke; });
  watch.begin();
  watch.useBus(bus_.application);
  StandInLogin login(bus_.service);
  hear();
  login.tell(true);
  hear();
  EXPECT_EQ(woke, 0) << "it goes to sleep";
  login.tell(false);
  hear();
  EXPECT_EQ(woke, 1);
}

}  // namespace
}  // namespace quillet
