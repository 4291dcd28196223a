// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <memory>
#include <optional>

#include "system/descriptor.h"

class QSocketNotifier;

namespace quillet {

/// Notices that the machine has slept: by the login service, and by the time of day, which jumps
/// when it wakes, and when somebody sets it. May tell of one waking twice.
class WakeWatch : public QObject {
  Q_OBJECT

 public:
  WakeWatch();
  ~WakeWatch() override;

  /// Follows the time of day from now on, without a tick. Where the kernel does not tell of its
  /// jumps, nothing is noticed.
  void begin();

  /// Called once, with the system's bus, where the login service is.
  void useBus(const QDBusConnection& bus);

 Q_SIGNALS:
  void woke();

 private Q_SLOTS:
  void takeSleep(bool begins);

 private:
  void arm() const;
  void listen();

  std::optional<QDBusConnection> bus_;
  Descriptor jumps_;
  std::unique_ptr<QSocketNotifier> news_;
};

}  // namespace quillet
