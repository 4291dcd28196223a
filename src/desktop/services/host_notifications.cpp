// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/host_notifications.h"

#include <utility>

#include "system/settings_keys.h"

namespace quillet {

void HostNotifications::use(ServiceHost& host) {
  host_ = &host;
  connect(&host.notifier(), &Notifier::authorizationChanged, this, &HostNotifications::follow);
  Q_EMIT changed();
  if (std::exchange(isWanted_, false)) allow();
}

void HostNotifications::follow() {
  if (const auto& error = host_->notifier().lastPermissionError())
    Q_EMIT failed(
        tr("Notifications could not be enabled: %1.").arg(QString::fromStdString(*error)));
  Q_EMIT changed();
}

std::optional<AuthorizationStatus> HostNotifications::status() const {
  if (host_ == nullptr) return {};
  return host_->notifier().authorizationStatus();
}

void HostNotifications::refresh() {
  if (host_ != nullptr) host_->refreshNotifications();
}

void HostNotifications::allow() {
  if (host_ == nullptr) {
    isWanted_ = true;
  } else {
    host_->enableNotifications();
  }
}

/// The services see it in the settings.
void HostNotifications::refuse() {
  settings_.write({{std::string(kNotificationsEnabled.key), "false"}});
}

void HostNotifications::showTest() {
  if (host_ == nullptr) return;
  host_->showTestNotification([self = QPointer(this)](const std::string& why) {
    const QString text = tr("The notification was not shown: %1.");
    if (self) Q_EMIT self->failed(text.arg(QString::fromStdString(why)));
  });
}

}  // namespace quillet
