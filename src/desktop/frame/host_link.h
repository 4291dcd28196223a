// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

#include "desktop/frame/check_state.h"
#include "desktop/services/service_host.h"

namespace quillet {

/// What a window knows of the services behind it, before and after they are there.
class HostLink : public QObject {
  Q_OBJECT

 public:
  /// `storefront`: the user's.
  explicit HostLink(std::function<std::string()> storefront);

  /// Called once, with the services of the library that is open now, which outlive the windows.
  void use(ServiceHost& host);
  /// As the library has it, for the time before the first check of this run.
  void setLastCheck(const std::optional<Instant>& when);

  [[nodiscard]] bool isOpen() const { return host_ != nullptr; }
  [[nodiscard]] bool isChecking() const;
  [[nodiscard]] bool canCheckPrices() const { return isOpen() && !isChecking(); }
  void checkPrices();
  [[nodiscard]] CheckState checks() const;

  /// Published prices, of all storefronts that somebody looks at.
  [[nodiscard]] bool canCheckPriceData() const;
  void checkPriceData();

  [[nodiscard]] bool canAllowNotifications() const;
  void allowNotifications();

 Q_SIGNALS:
  void changed();
  /// What came of allowing them.
  void told(const QString& text);

 private:
  void tellAnswer();

  std::function<std::string()> storefront_;
  ServiceHost* host_ = nullptr;
  bool hasAsked_ = false;  ///< to be notified, and nothing was told of it yet
  std::optional<Instant> lastCheck_;
};

}  // namespace quillet
