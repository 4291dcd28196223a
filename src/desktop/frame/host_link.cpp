// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/host_link.h"

namespace quillet {

HostLink::HostLink(std::function<std::string()> storefront) : storefront_(std::move(storefront)) {}

void HostLink::use(ServiceHost& host) {
  host_ = &host;
  connect(&host.monitor(), &WatchlistMonitor::stateChanged, this, &HostLink::changed);
  connect(&host.imports(), &PriceImports::runningChanged, this, &HostLink::changed);
  connect(&host.notifier(), &Notifier::authorizationChanged, this, &HostLink::changed);
  connect(&host.notifier(), &Notifier::authorizationChanged, this, &HostLink::tellAnswer);
  Q_EMIT changed();
}

void HostLink::setLastCheck(const std::optional<Instant>& when) {
  if (lastCheck_ == when) return;
  lastCheck_ = when;
  Q_EMIT changed();
}

bool HostLink::isChecking() const { return isOpen() && host_->monitor().isRefreshing(); }

void HostLink::checkPrices() {
  if (canCheckPrices()) host_->checkPrices();
}

CheckState HostLink::checks() const {
  CheckState state;
  if (isOpen()) state = checkStateOf(host_->monitor());
  if (!state.last) state.last = lastCheck_;
  state.storefront = QString::fromStdString(storefront_());
  return state;
}

bool HostLink::canCheckPriceData() const { return isOpen() && !host_->imports().isRunning(); }

void HostLink::checkPriceData() {
  if (canCheckPriceData()) host_->checkPriceData();
}

bool HostLink::canAllowNotifications() const {
  if (!isOpen()) return false;
  const AuthorizationStatus status = host_->notifier().authorizationStatus();
  return status == AuthorizationStatus::notDetermined || status == AuthorizationStatus::denied;
}

void HostLink::allowNotifications() {
  if (!canAllowNotifications()) return;
  hasAsked_ = true;
  host_->enableNotifications();
}

void HostLink::tellAnswer() {
  const Notifier& notifier = host_->notifier();
  const auto& error = notifier.lastPermissionError();
  const bool isAllowed = notifier.authorizationStatus() == AuthorizationStatus::authorized;
  if (!hasAsked_ || (!error && !isAllowed)) return;
  hasAsked_ = false;
  Q_EMIT told(error ? tr("Notifications are not allowed: %1.").arg(QString::fromStdString(*error))
                    : tr("Notifications are allowed."));
}

}  // namespace quillet
