// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "notifications/notification_center.h"

namespace quillet {

/// Whether the user is notified, for who shows it and lets them choose.
class NotificationChoice : public QObject {
  Q_OBJECT

 public:
  /// Absent while it is not known.
  [[nodiscard]] virtual std::optional<AuthorizationStatus> status() const = 0;
  /// Finds it out anew.
  virtual void refresh() = 0;
  virtual void allow() = 0;
  /// Throws BadSetting where that cannot be kept.
  virtual void refuse() = 0;
  virtual void showTest() = 0;

 Q_SIGNALS:
  void changed();
  /// The user could not be asked, or shown the test. A sentence.
  void failed(const QString& sentence);
};

}  // namespace quillet
