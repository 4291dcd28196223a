// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

/// What a notification carries back when it is clicked.
struct NotificationUserInfo {
  std::int64_t trackId = 0;
};

/// A notification to be shown at once, with the default sound. All text is plain.
struct NotificationRequest {
  std::string identifier;  ///< what is shown under the same one already is replaced
  std::string title;
  std::string body;
  NotificationUserInfo userInfo;
  bool offersStore = false;  ///< the app's page in the App Store, as an action
};

enum class AuthorizationStatus {
  notDetermined,  ///< nobody was asked yet
  denied,         ///< by the user
  authorized,
  unavailable,  ///< nobody there who could show anything
};

/// A notification that could not be shown, or a question that could not be asked. The text is one
/// clause without a full stop, for people.
class NotificationError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The platform's notification service, whose answers are awaited. An object of the event-loop
/// thread that outlives its operations, which throw NetworkError `cancelled` at a stop: what was
/// under way may be shown or not.
class NotificationCenter : public QObject {
  Q_OBJECT

 public:
  virtual Task<AuthorizationStatus> authorizationStatus(StopToken stop) = 0;

  /// Asks for permission to show and to sound. Throws NotificationError when nobody can be asked;
  /// a refusal is seen in the status.
  virtual Task<> requestAuthorization(StopToken stop) = 0;

  /// Throws NotificationError. Requests that overlap are shown in the order of the calls.
  virtual Task<> add(NotificationRequest request, StopToken stop) = 0;

  /// Identifiers of what is still shown of this run.
  [[nodiscard]] virtual std::vector<std::string> shown() const = 0;

  /// Takes away what is shown under it, where anything is. Returns at once.
  virtual void withdraw(const std::string& identifier) = 0;

 Q_SIGNALS:
  /// The user chose a notification. The token, where there is one, lets a window come to the front.
  void clicked(const quillet::NotificationUserInfo& userInfo, const std::string& activationToken);
  /// The user chose the App Store on one that offers it.
  void storeChosen(const quillet::NotificationUserInfo& userInfo,
                   const std::string& activationToken);
};

}  // namespace quillet
