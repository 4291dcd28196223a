// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/tray_host.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <utility>

namespace quillet {
namespace {

QString serviceName() { return QStringLiteral("org.kde.StatusNotifierWatcher"); }
QString objectPath() { return QStringLiteral("/StatusNotifierWatcher"); }

}  // namespace

void TrayHost::useBus(const QDBusConnection& bus) {
  bus_.emplace(bus);
  if (!bus_->isConnected()) return;
  auto* owner =
      new QDBusServiceWatcher(serviceName(), *bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(owner, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::ask);
  connect(owner, &QDBusServiceWatcher::serviceUnregistered, this, &TrayHost::leave);
  for (const char* news : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_->connect(serviceName(), objectPath(), serviceName(), QLatin1String(news), this,
                  SLOT(ask()));
  }
  ask();
}

void TrayHost::ask() {
  QDBusMessage call = QDBusMessage::createMethodCall(
      serviceName(), objectPath(), QStringLiteral("org.freedesktop.DBus.Properties"),
      QStringLiteral("Get"));
  call.setAutoStartService(false);
  call << serviceName() << QStringLiteral("IsStatusNotifierHostRegistered");
  auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, asked = ++asked_] {
    answer->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (asked == asked_) take(!reply.isError() && reply.value().variant().toBool());
  });
}

void TrayHost::leave() {
  ++asked_;
  take(false);
}

void TrayHost::take(bool isThere) {
  if (std::exchange(isThere_, isThere) != isThere) Q_EMIT changed();
}

}  // namespace quillet
