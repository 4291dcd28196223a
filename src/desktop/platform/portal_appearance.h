// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <optional>

#include "desktop/platform/desktop_appearance.h"

namespace quillet {

/// What a Linux desktop says through its portal, org.freedesktop.portal.Settings. It is asked when
/// the bus is known and whenever it begins anew, and never waited for: until it has answered, and
/// where there is none, windows are light.
class PortalAppearance final : public DesktopAppearance {
  Q_OBJECT

 public:
  /// Called once, when the session's bus is known. A bus without a connection is one without a
  /// portal.
  void useBus(const QDBusConnection& bus);

  [[nodiscard]] Appearance wanted() const override { return wanted_; }

 private Q_SLOTS:
  /// As a message: with a QDBusVariant the connection would fail until somebody has used that type.
  void takeChange(const QDBusMessage& signal);

 private:
  void ask();
  void take(const QString& space, const QString& key, QVariant value);

  std::optional<QDBusConnection> bus_;
  Appearance wanted_;
};

}  // namespace quillet
