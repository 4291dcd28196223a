// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/metered_network.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <utility>

namespace quillet {
namespace {

QString serviceName() { return QStringLiteral("org.freedesktop.NetworkManager"); }
QString objectPath() { return QStringLiteral("/org/freedesktop/NetworkManager"); }
QString propertiesName() { return QStringLiteral("org.freedesktop.DBus.Properties"); }
QString meteredName() { return QStringLiteral("Metered"); }

/// The manager's NMMetered: 1 is yes, 3 a yes that it guessed.
bool isYes(const QVariant& value) {
  const uint metered = value.toUInt();
  return metered == 1 || metered == 3;
}

}  // namespace

void MeteredNetwork::useBus(const QDBusConnection& bus) {
  bus_.emplace(bus);
  if (!bus_->isConnected()) return;
  auto* owner =
      new QDBusServiceWatcher(serviceName(), *bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(owner, &QDBusServiceWatcher::serviceRegistered, this, &MeteredNetwork::ask);
  connect(owner, &QDBusServiceWatcher::serviceUnregistered, this, [this] { take(false); });
  bus_->connect(serviceName(), objectPath(), propertiesName(), QStringLiteral("PropertiesChanged"),
                this, SLOT(takeChange(QString, QVariantMap, QStringList)));
  ask();
}

void MeteredNetwork::ask() {
  QDBusMessage call = QDBusMessage::createMethodCall(serviceName(), objectPath(), propertiesName(),
                                                     QStringLiteral("Get"));
  call.setAutoStartService(false);  // who uses no manager wants none
  call << serviceName() << meteredName();
  auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    // An error is a manager that does not know, or none at all.
    take(!reply.isError() && isYes(reply.value().variant()));
  });
}

void MeteredNetwork::takeChange(const QString& interface, const QVariantMap& values,
                                const QStringList& /*unsaid*/) {
  if (interface == serviceName() && values.contains(meteredName()))
    take(isYes(values[meteredName()]));
}

void MeteredNetwork::take(bool isMetered) {
  if (std::exchange(isMetered_, isMetered) != isMetered) Q_EMIT changed();
}

}  // namespace quillet
