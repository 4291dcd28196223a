// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include "desktop/services/live_settings.h"
#include "desktop/services/notification_choice.h"
#include "desktop/services/service_host.h"

namespace quillet {

/// The user's choice as the services have it; nothing is known before they are there.
class HostNotifications final : public NotificationChoice {
  Q_OBJECT

 public:
  /// The settings outlive it.
  explicit HostNotifications(LiveSettings& settings) : settings_(settings) {}

  /// The host outlives whoever asks.
  void use(ServiceHost& host);

  [[nodiscard]] std::optional<AuthorizationStatus> status() const override;
  void refresh() override;
  void allow() override;
  void refuse() override;
  void showTest() override;

 private:
  void follow();

  LiveSettings& settings_;
  ServiceHost* host_ = nullptr;
  bool isWanted_ = false;  ///< allowed by the user before there was a host
};

}  // namespace quillet
