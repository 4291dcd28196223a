// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "notifications/freedesktop_notifications.h"

#include <fmt/format.h>

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QVariantMap>
#include <algorithm>
#include <chrono>
#include <utility>

#include "base/errors.h"
#include "net/network_errors.h"
#include "system/application_name.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// A service that is just being started by the bus answers well within it.
constexpr std::chrono::milliseconds kAnswerTimeout = 10s;

// The service's own ideas of how long and of what to replace.
constexpr int kServersTimeout = -1;
constexpr uint kReplacesNothing = 0;

/// What the user can choose on a notification.
struct Choice {
  const char* id;
  const char* label;
  bool opensStore;
};

// "default" is a click on the notification itself.
constexpr Choice kChoices[] = {
    {"default", "Show App", false},
    {"show-app", "Show App", false},
    {"open-in-store", "Open in App Store", true},
};

QString serviceName() { return QStringLiteral("org.freedesktop.Notifications"); }
QString objectPath() { return QStringLiteral("/org/freedesktop/Notifications"); }

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QDBusMessage callOf(const char* method) {
  return QDBusMessage::createMethodCall(serviceName(), objectPath(), serviceName(),
                                        QLatin1String(method));
}

NotificationError errorOf(const QDBusError& error) {
  switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
      return NotificationError("this desktop has no notification service");
    case QDBusError::NoReply:
    case QDBusError::TimedOut: return NotificationError("the notification service does not answer");
    default:
      return NotificationError(
          fmt::format("the notification service says: {}", error.message().toStdString()));
  }
}

/// A call over no connection would never tell of its end.
QDBusPendingCall send(const QDBusConnection& bus, const QDBusMessage& message) {
  if (!bus.isConnected()) throw errorOf(QDBusError(QDBusError::Disconnected, {}));
  return bus.asyncCall(message, static_cast<int>(kAnswerTimeout.count()));
}

QStringList actionsFor(const NotificationRequest& request, const QStringList& capabilities) {
  QStringList actions;
  if (!capabilities.contains(QLatin1String("actions"))) return actions;
  for (const Choice& choice : kChoices) {
    if (!choice.opensStore || request.offersStore)
      actions << QLatin1String(choice.id) << QLatin1String(choice.label);
  }
  return actions;
}

/// A server that reads markup would take a "<" of a text for it; another shows an escaped one as
/// it is. Titles are plain text everywhere.
QString bodyFor(const std::string& body, const QStringList& capabilities) {
  const QString plain = text(body);
  if (!capabilities.contains(QLatin1String("body-markup"))) return plain;
  QString escaped;
  for (const QChar character : plain) {
    if (character == u'&') {
      escaped += QLatin1String("&amp;");
    } else if (character == u'<') {
      escaped += QLatin1String("&lt;");
    } else if (character == u'>') {
      escaped += QLatin1String("&gt;");
    } else {
      escaped += character;
    }
  }
  return escaped;
}

QVariantMap hints() {
  return {{QStringLiteral("desktop-entry"), text(kApplicationId)},
          // A name of the freedesktop sound theme: what a desktop plays by default for news.
          {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")}};
}

}  // namespace

FreedesktopNotifications::FreedesktopNotifications(WritableSettings& settings)
    : settings_(settings) {}

void FreedesktopNotifications::useBus(const QDBusConnection& bus) {
  bus_.emplace(bus);
  auto* owner =
      new QDBusServiceWatcher(serviceName(), *bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
          &FreedesktopNotifications::forgetServer);
  connectSignal("ActivationToken", SLOT(takeToken(uint, QString)));
  connectSignal("ActionInvoked", SLOT(takeAction(uint, QString)));
  connectSignal("NotificationClosed", SLOT(forget(uint)));
  for (const Completion& known : std::exchange(waiting_, {})) known.set();
}

Task<> FreedesktopNotifications::waitForBus(StopToken stop) {
  if (bus_) co_return;
  const Completion known;
  waiting_.push_back(known);
  const StopCallback onStop(stop, [known] { known.set(); });
  co_await known;
  if (stop.stopRequested()) throw cancelledError();
}

void FreedesktopNotifications::connectSignal(const char* name, const char* slot) {
  bus_->connect(serviceName(), objectPath(), serviceName(), QLatin1String(name), this, slot);
}

Task<AuthorizationStatus> FreedesktopNotifications::authorizationStatus(StopToken stop) {
  const auto isEnabled = notificationsEnabled(settings_);
  if (isEnabled == false) co_return AuthorizationStatus::denied;
  try {
    co_await readCapabilities(std::move(stop));
  } catch (const NotificationError&) {
    co_return AuthorizationStatus::unavailable;
  }
  co_return isEnabled ? AuthorizationStatus::authorized : AuthorizationStatus::notDetermined;
}

Task<> FreedesktopNotifications::requestAuthorization(StopToken stop) {
  co_await readCapabilities(std::move(stop));
  try {
    settings_.write({{std::string(kNotificationsEnabled.key), "true"}});
  } catch (const BadSetting&) {
    throw NotificationError("the settings could not be written");
  }
}

Task<QStringList> FreedesktopNotifications::readCapabilities(StopToken stop) {
  co_await waitForBus(stop);
  // As constants: QCoro moves what a coroutine returns out of anything else that has a name.
  if (capabilities_) co_return std::as_const(*capabilities_);
  const QDBusPendingCallWatcher watcher(send(*bus_, callOf("GetCapabilities")));
  const Completion ended;
  const StopCallback onStop(stop, [ended] { ended.set(); });
  connect(&watcher, &QDBusPendingCallWatcher::finished, this, [ended] { ended.set(); });
  co_await ended;
  if (stop.stopRequested()) throw cancelledError();
  const QDBusPendingReply<QStringList> reply = watcher;
  if (reply.isError()) throw errorOf(reply.error());
  capabilities_ = reply.value();
  co_return std::as_const(*capabilities_);
}

Task<> FreedesktopNotifications::add(NotificationRequest request, StopToken stop) {
  const Semaphore::Permit permit = co_await turn_.acquire(stop);
  const QStringList capabilities = co_await readCapabilities(stop);
  const QDBusPendingCallWatcher watcher(send(*bus_, messageFor(request, capabilities)));
  const Completion ended;
  const StopCallback onStop(stop, [ended] { ended.set(); });
  // Kept inside the signal: "closed" may follow the answer before this coroutine goes on.
  connect(&watcher, &QDBusPendingCallWatcher::finished, this, [this, &watcher, &request, ended] {
    keep(request, watcher);
    ended.set();
  });
  co_await ended;
  // Shown is shown, also where the stop came right behind it.
  if (!watcher.isFinished()) throw cancelledError();
  if (watcher.isError()) throw errorOf(watcher.error());
}

QDBusMessage FreedesktopNotifications::messageFor(const NotificationRequest& request,
                                                  const QStringList& capabilities) const {
  const auto shown = shown_.find(request.identifier);
  QDBusMessage message = callOf("Notify");
  message << text(kApplicationName) << (shown == shown_.end() ? kReplacesNothing : shown->second.id)
          << text(kApplicationId) << text(request.title) << bodyFor(request.body, capabilities)
          << actionsFor(request, capabilities) << hints() << kServersTimeout;
  return message;
}

void FreedesktopNotifications::keep(const NotificationRequest& request,
                                    const QDBusPendingCallWatcher& call) {
  const QDBusPendingReply<uint> reply = call;
  if (reply.isError()) return;
  shown_.insert_or_assign(request.identifier, Shown{reply.value(), request.userInfo, {}});
}

FreedesktopNotifications::Shown* FreedesktopNotifications::findShown(uint id) {
  const auto found = std::find_if(shown_.begin(), shown_.end(),
                                  [id](const auto& entry) { return entry.second.id == id; });
  return found == shown_.end() ? nullptr : &found->second;
}

void FreedesktopNotifications::takeToken(uint id, const QString& token) {
  if (Shown* shown = findShown(id)) shown->activationToken = token.toStdString();
}

void FreedesktopNotifications::takeAction(uint id, const QString& action) {
  const Shown* shown = findShown(id);
  const auto* choice =
      std::find_if(std::begin(kChoices), std::end(kChoices),
                   [&](const Choice& ours) { return action == QLatin1String(ours.id); });
  if (shown == nullptr || choice == std::end(kChoices)) return;
  const Shown chosen = *shown;  // whoever hears of it may post anew
  if (choice->opensStore) {
    Q_EMIT storeChosen(chosen.userInfo, chosen.activationToken);
  } else {
    Q_EMIT clicked(chosen.userInfo, chosen.activationToken);
  }
}

std::vector<std::string> FreedesktopNotifications::shown() const {
  std::vector<std::string> identifiers;
  for (const auto& entry : shown_) identifiers.push_back(entry.first);
  return identifiers;
}

void FreedesktopNotifications::withdraw(const std::string& identifier) {
  const auto found = shown_.find(identifier);
  if (found == shown_.end()) return;
  QDBusMessage message = callOf("CloseNotification");
  message << found->second.id;
  shown_.erase(found);
  bus_->send(message);
}

void FreedesktopNotifications::forget(uint id) {
  std::erase_if(shown_, [id](const auto& entry) { return entry.second.id == id; });
}

/// Another server knows nothing of what this one showed.
void FreedesktopNotifications::forgetServer() {
  shown_.clear();
  capabilities_.reset();
}

}  // namespace quillet
