// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace quillet {

/// A service with one object, on the bus as long as it lives.
class StandInObject : public QObject {
  Q_OBJECT

 public:
  ~StandInObject() override {
    bus_.unregisterService(name_);
    bus_.unregisterObject(path_);
  }

  void signal(const QString& interface, const QString& name, const QVariantList& arguments = {}) {
    QDBusMessage message = QDBusMessage::createSignal(path_, interface, name);
    message.setArguments(arguments);
    bus_.send(message);
  }

 protected:
  StandInObject(const QDBusConnection& bus, QString name, QString path)
      : bus_(bus), name_(std::move(name)), path_(std::move(path)) {}
  /// By who is whole.
  void begin() {
    bus_.registerObject(path_, this, QDBusConnection::ExportAllProperties);
    bus_.registerService(name_);
  }

 private:
  QDBusConnection bus_;
  QString name_;
  QString path_;
};

/// A status notifier's watcher.
class StandInWatcher : public StandInObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

 public:
  StandInWatcher(const QDBusConnection& bus, bool host)
      : StandInObject(bus, QStringLiteral("org.kde.StatusNotifierWatcher"),
                      QStringLiteral("/StatusNotifierWatcher")),
        hasHost(host) {
    begin();
  }
  bool hasHost;
};

/// What of a network manager tells whether the network is metered.
class StandInManager : public StandInObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.NetworkManager")
  Q_PROPERTY(uint Metered MEMBER metered)

 public:
  StandInManager(const QDBusConnection& bus, uint value)
      : StandInObject(bus, QStringLiteral("org.freedesktop.NetworkManager"),
                      QStringLiteral("/org/freedesktop/NetworkManager")),
        metered(value) {
    begin();
  }
  void set(uint value) {
    signal(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
           {QStringLiteral("org.freedesktop.NetworkManager"),
            QVariantMap{{QStringLiteral("Metered"), value}}, QStringList()});
  }
  uint metered;
};

/// The login service, as far as it tells of sleep.
class StandInLogin : public StandInObject {
  Q_OBJECT

 public:
  explicit StandInLogin(const QDBusConnection& bus)
      : StandInObject(bus, QStringLiteral("org.freedesktop.login1"),
                      QStringLiteral("/org/freedesktop/login1")) {
    begin();
  }
  void tell(bool sleeps) {
    signal(QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"),
           {sleeps});
  }
};

}  // namespace quillet
