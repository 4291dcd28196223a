// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <signal.h>
#include <sys/prctl.h>

#include <QDBusConnection>
#include <QProcess>
#include <stdexcept>

#include "support/place.h"

namespace quillet {

/// A message bus of a test's own, with two connections to it. Whoever is to answer must connect.
class PrivateBus {
 public:
  PrivateBus() {
    // A test that is killed takes its bus along.
    daemon_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                   QStringLiteral("--config-file=") +
                       QString::fromStdString(placeOf(QUILLET_BUS_CONFIGURATION))});
    if (!daemon_.waitForReadyRead()) throw std::runtime_error("No dbus-daemon could be run");
    const QString address = QString::fromUtf8(daemon_.readLine().trimmed());
    application = QDBusConnection::connectToBus(address, QStringLiteral("application"));
    service = QDBusConnection::connectToBus(address, QStringLiteral("service"));
  }
  ~PrivateBus() {
    for (const QDBusConnection& each : {application, service}) {
      QDBusConnection::disconnectFromBus(each.name());
    }
    daemon_.terminate();
    daemon_.waitForFinished();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  QDBusConnection application{QString()};
  QDBusConnection service{QString()};

 private:
  QProcess daemon_;
};

}  // namespace quillet
