// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "notifications/notifier.h"

#include <fmt/format.h>

#include <utility>

#include "base/text.h"

namespace quillet {
namespace {

std::string lineOf(const NotificationRequest& request) {
  return printable(fmt::format("{}: {}", request.title, request.body));
}

}  // namespace

NotificationRequest notificationOf(const PriceAlertEvent& event) {
  return {.identifier = "alert-" + identityOf(event),
          .title = titleOf(event),
          .body = bodyOf(event),
          .userInfo = {.trackId = event.trackId}};
}

Notifier::Notifier(NotificationCenter& center, LogSink log)
    : center_(center), log_(std::move(log)) {
  connect(&center_, &NotificationCenter::clicked, this, &Notifier::keepClicked);
}

Task<> Notifier::post(std::vector<PriceAlertEvent> events) {
  const AuthorizationStatus status = co_await readAuthorization();
  for (const PriceAlertEvent& event : events) {
    NotificationRequest request = notificationOf(event);
    if (status == AuthorizationStatus::unavailable) log_(lineOf(request));
    if (status != AuthorizationStatus::authorized) continue;
    co_await show(std::move(request));
  }
}

Task<> Notifier::show(NotificationRequest request) {
  try {
    co_await center_.add(request);
  } catch (const NotificationError& error) {
    log_(fmt::format("{} (not shown: {})", lineOf(request), printable(error.what())));
  }
}

Task<> Notifier::refreshAuthorization() { co_await readAuthorization(); }

Task<> Notifier::requestAuthorization() {
  lastPermissionError_.reset();
  try {
    co_await center_.requestAuthorization();
  } catch (const NotificationError& error) {
    lastPermissionError_ = error.what();
    Q_EMIT authorizationChanged();
  }
  co_await refreshAuthorization();
}

Task<AuthorizationStatus> Notifier::readAuthorization() {
  const AuthorizationStatus status = co_await center_.authorizationStatus();
  if (std::exchange(authorizationStatus_, status) != status) Q_EMIT authorizationChanged();
  co_return status;
}

std::optional<std::int64_t> Notifier::takePendingTrackId() {
  return std::exchange(pendingTrackId_, std::nullopt);
}

void Notifier::keepClicked(const NotificationUserInfo& userInfo,
                           const std::string& activationToken) {
  pendingTrackId_ = userInfo.trackId;
  Q_EMIT trackIdPending(activationToken);
}

}  // namespace quillet
