// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <optional>

namespace quillet {

/// Whether the desktop has a tray: a status notifier's watcher on the session's bus, with a host
/// that shows what it is told of. It comes and goes while the desktop runs. It is asked and never
/// waited for, so that one that does not answer is as good as none: Qt, which keeps its own first
/// answer and waits for it, is to be asked only when there is one.
class TrayHost : public QObject {
  Q_OBJECT

 public:
  /// Called once, when the session's bus is known. A bus without a connection has no tray.
  void useBus(const QDBusConnection& bus);

  [[nodiscard]] bool isThere() const { return isThere_; }

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  void ask();

 private:
  void leave();
  void take(bool isThere);

  std::optional<QDBusConnection> bus_;
  bool isThere_ = false;
  int asked_ = 0;  ///< the question that counts: of the watcher that is there
};

}  // namespace quillet
