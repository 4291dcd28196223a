// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/log_sink.h"
#include "library/price_alerts.h"
#include "notifications/notification_center.h"

namespace quillet {

/// Turns what a price check found into notifications, and remembers which app a clicked one points
/// at. An object of the event-loop thread that outlives its operations.
class Notifier : public QObject {
  Q_OBJECT

 public:
  Notifier(NotificationCenter& center, LogSink log);

  /// Tells of the application itself, where notifications are allowed; a click on it points at no
  /// app. Never throws.
  Task<> tell(NotificationRequest request, StopToken stop);

  /// One notification per event, in order; nothing unless the user allowed them. Where nobody can
  /// show them, for one that fails, and for those that a stop came before, title and body are
  /// logged. Never throws.
  Task<> post(std::vector<PriceAlertEvent> events, StopToken stop);

  /// Identifiers of the alerts that are still shown.
  [[nodiscard]] std::vector<std::string> shown() const { return center_.shown(); }
  /// Of these, takes away those that tell of nothing that is unread.
  void withdrawRead(const std::vector<std::string>& shown, const std::vector<AlertRecord>& unread);
  /// Shows one that is about no app, for the user to see that it comes. Throws NotificationError,
  /// and NetworkError `cancelled` at a stop.
  Task<> postTest(StopToken stop);

  /// Both throw NetworkError `cancelled` at a stop.
  Task<> refreshAuthorization(StopToken stop);
  Task<> requestAuthorization(StopToken stop);

  /// As last read; not determined before.
  [[nodiscard]] AuthorizationStatus authorizationStatus() const { return authorizationStatus_; }
  [[nodiscard]] bool authorizationDenied() const {
    return authorizationStatus_ == AuthorizationStatus::denied;
  }
  /// Why the last request for permission failed; absent when it did not.
  [[nodiscard]] const std::optional<std::string>& lastPermissionError() const {
    return lastPermissionError_;
  }

  /// The app whose notification was clicked, until it is taken; 0 for one that tells of none.
  [[nodiscard]] const std::optional<std::int64_t>& pendingTrackId() const {
    return pendingTrackId_;
  }
  [[nodiscard]] std::optional<std::int64_t> takePendingTrackId();

 Q_SIGNALS:
  /// The status, or why it could not be changed.
  void authorizationChanged();
  /// There is a track ID to take. The token, unless empty, lets a window come to the front.
  void trackIdPending(const std::string& activationToken);
  /// The user wants to see that app in the App Store.
  void storeWanted(std::int64_t trackId, const std::string& activationToken);

 private:
  Task<AuthorizationStatus> readAuthorization(StopToken stop);
  void logUnshown(const std::string& line, const std::string& reason) const;
  void keepClicked(const NotificationUserInfo& userInfo, const std::string& activationToken);

  NotificationCenter& center_;
  LogSink log_;
  AuthorizationStatus authorizationStatus_ = AuthorizationStatus::notDetermined;
  std::optional<std::string> lastPermissionError_;
  std::optional<std::int64_t> pendingTrackId_;
};

/// The notification that tells of an event.
[[nodiscard]] NotificationRequest notificationOf(const PriceAlertEvent& event);

}  // namespace quillet
