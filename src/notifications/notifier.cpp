// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "notifications/notifier.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace quillet {
namespace {

std::string lineOf(const NotificationRequest& request) {
  return printable(fmt::format("{}: {}", request.title, request.body));
}

constexpr std::string_view kOfAlerts = "alert-";

std::string identifierOf(const PriceAlertEvent& event) {
  return std::string(kOfAlerts) + identityOf(event);
}

/// Whether the store's page is where one would go next: to buy at the price that it tells.
bool isAboutPrice(const PriceAlertEvent& event) {
  return event.kind == AlertKind::priceDrop || event.kind == AlertKind::wentFree ||
         event.kind == AlertKind::targetReached;
}

}  // namespace

NotificationRequest notificationOf(const PriceAlertEvent& event) {
  return {.identifier = identifierOf(event),
          .title = titleOf(event),
          .body = bodyOf(event),
          .userInfo = {.trackId = event.trackId},
          .offersStore = isAboutPrice(event)};
}

Notifier::Notifier(NotificationCenter& center, LogSink log)
    : center_(center), log_(std::move(log)) {
  connect(&center_, &NotificationCenter::clicked, this, &Notifier::keepClicked);
  connect(&center_, &NotificationCenter::storeChosen, this,
          [this](const NotificationUserInfo& userInfo, const std::string& activationToken) {
            Q_EMIT storeWanted(userInfo.trackId, activationToken);
          });
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

Task<> Notifier::tell(NotificationRequest request, StopToken stop) {
  if (authorizationStatus_ != AuthorizationStatus::authorized) co_return;
  const std::string line = lineOf(request);
  try {
    co_await center_.add(std::move(request), stop);
  } catch (const std::exception& error) {
    logUnshown(line, printable(error.what()));
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

void Notifier::withdrawRead(const std::vector<std::string>& shown,
                            const std::vector<AlertRecord>& unread) {
  std::set<std::string> kept;
  for (const AlertRecord& alert : unread) {
    if (const auto event = eventOf(alert)) kept.insert(identifierOf(*event));
  }
  for (const std::string& identifier : shown) {
    if (identifier.starts_with(kOfAlerts) && !kept.contains(identifier))
      center_.withdraw(identifier);
  }
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
