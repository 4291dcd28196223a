// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "notifications/notifier.h"

#include <fmt/format.h>

#include <utility>

#include "base/errors.h"
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

Task<> Notifier::post(std::vector<PriceAlertEvent> events, StopToken stop) {
  std::optional<AuthorizationStatus> status;
  for (const PriceAlertEvent& event : events) {
    NotificationRequest request = notificationOf(event);
    const std::string line = lineOf(request);
    try {
      if (!status) status = co_await readAuthorization(stop);
      if (status == AuthorizationStatus::unavailable) log_(line);
      if (status != AuthorizationStatus::authorized) continue;
      co_await center_.add(std::move(request), stop);
    } catch (const NotificationError& error) {
      logUnshown(line, printable(error.what()));
    } catch (const NetworkError&) {
      logUnshown(line, "Quillet was ending");
    }
  }
}

Task<> Notifier::postTest(StopToken stop) {
  NotificationRequest request{.identifier = "test",
                              .title = "Notifications work",
                              .body = "This is how alerts of watched apps are told.",
                              .userInfo = {}};
  co_await center_.add(std::move(request), std::move(stop));
}

void Notifier::logUnshown(const std::string& line, const std::string& reason) const {
  log_(fmt::format("{} (not shown: {})", line, reason));
}

Task<> Notifier::refreshAuthorization(StopToken stop) {
  co_await readAuthorization(std::move(stop));
}

Task<> Notifier::requestAuthorization(StopToken stop) {
  lastPermissionError_.reset();
  try {
    co_await center_.requestAuthorization(stop);
  } catch (const NotificationError& error) {
    lastPermissionError_ = error.what();
    Q_EMIT authorizationChanged();
  }
  co_await refreshAuthorization(std::move(stop));
}

Task<AuthorizationStatus> Notifier::readAuthorization(StopToken stop) {
  const AuthorizationStatus status = co_await center_.authorizationStatus(std::move(stop));
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
