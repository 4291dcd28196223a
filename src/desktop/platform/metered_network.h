// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>
#include <optional>

namespace quillet {

/// Whether the network that is in use is paid by what is sent over it, as far as the system's
/// network manager knows; without one it is not. It is asked when the bus is known and whenever it
/// begins anew, followed, and never waited for.
class MeteredNetwork : public QObject {
  Q_OBJECT

 public:
  /// Called once, with the system's bus.
  void useBus(const QDBusConnection& bus);

  [[nodiscard]] bool isMetered() const { return isMetered_; }

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  void takeChange(const QString& interface, const QVariantMap& values, const QStringList& unsaid);

 private:
  void ask();
  void take(bool isMetered);

  std::optional<QDBusConnection> bus_;
  bool isMetered_ = false;
};

}  // namespace quillet
