// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "net/completion.h"
#include "net/semaphore.h"
#include "notifications/notification_center.h"
#include "system/settings.h"

class QDBusPendingCallWatcher;

namespace quillet {

/// The notification service of a Linux desktop, org.freedesktop.Notifications. It knows no
/// permissions, so the user's own setting stands for them, and a request is the user's yes. A
/// service that does not answer within ten seconds counts as none.
class FreedesktopNotifications final : public NotificationCenter {
  Q_OBJECT

 public:
  explicit FreedesktopNotifications(WritableSettings& settings);

  /// Called once, when the session's bus is known, which operations wait for. A bus without a
  /// connection is one without a service.
  void useBus(const QDBusConnection& bus);

  Task<AuthorizationStatus> authorizationStatus(StopToken stop) override;
  Task<> requestAuthorization(StopToken stop) override;
  Task<> add(NotificationRequest request, StopToken stop) override;
  [[nodiscard]] std::vector<std::string> shown() const override;
  void withdraw(const std::string& identifier) override;

 private Q_SLOTS:
  void takeToken(uint id, const QString& token);
  void takeAction(uint id, const QString& action);
  void forget(uint id);
  void forgetServer();

 private:
  struct Shown {
    uint id = 0;
    NotificationUserInfo userInfo;
    std::string activationToken;
  };

  Task<> waitForBus(StopToken stop);
  Task<QStringList> readCapabilities(StopToken stop);
  [[nodiscard]] QDBusMessage messageFor(const NotificationRequest& request,
                                        const QStringList& capabilities) const;
  void keep(const NotificationRequest& request, const QDBusPendingCallWatcher& call);
  [[nodiscard]] Shown* findShown(uint id);
  void connectSignal(const char* name, const char* slot);

  WritableSettings& settings_;
  std::optional<QDBusConnection> bus_;
  std::vector<Completion> waiting_;  ///< for the bus
  Semaphore turn_{1};                ///< a request must know what the one before it was shown as
  std::optional<QStringList> capabilities_;
  std::map<std::string, Shown, std::less<>> shown_;  ///< by identifier
};

}  // namespace quillet
