// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <string>
#include <vector>

namespace quillet {

/// A notification service that notes what it is asked to show. Its ids count from 1.
class StandInService : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  explicit StandInService(const QDBusConnection& bus) : bus_(bus) {
    bus_.registerObject(path_, this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    bus_.registerService(name_);
  }
  ~StandInService() override {
    bus_.unregisterService(name_);
    bus_.unregisterObject(path_);
  }

  QStringList capabilities{QStringLiteral("body"), QStringLiteral("actions"),
                           QStringLiteral("body-markup")};
  /// Answers are kept back until release().
  bool isSlow = false;
  /// Titles of what it will not show.
  QString refused;
  /// It says that what it has just shown is closed.
  bool closesAtOnce = false;

  /// Of all that it was asked to show, each as "id<replaced id>".
  std::vector<std::string> shown;
  /// Of the last one: "title | body | application, icon | actions | desktop entry | timeout".
  std::string last;

  [[nodiscard]] std::size_t heldBack() const { return answers_.size(); }
  void release() {
    for (const QDBusMessage& answer : std::exchange(answers_, {})) bus_.send(answer);
  }

 public Q_SLOTS:
  QStringList GetCapabilities() { return capabilities; }

  uint Notify(const QString& application, uint replaces, const QString& icon, const QString& title,
              const QString& body, const QStringList& actions, const QVariantMap& hints,
              int timeout) {
    if (title == refused) {
      sendErrorReply(QDBusError::Failed, QStringLiteral("no <more>\nroom"));
      return 0;
    }
    const uint id = replaces == 0 ? ++lastId_ : replaces;
    shown.push_back(fmt::format("{}<{}>", id, replaces));
    last =
        fmt::format("{} | {} | {}, {} | {} | {} | {}", title.toStdString(), body.toStdString(),
                    application.toStdString(), icon.toStdString(), actions.join(u';').toStdString(),
                    hints.value(QStringLiteral("desktop-entry")).toString().toStdString(), timeout);
    if (isSlow) {
      setDelayedReply(true);
      answers_.push_back(message().createReply(id));
    } else if (closesAtOnce) {
      setDelayedReply(true);
      bus_.send(message().createReply(id));
      Q_EMIT NotificationClosed(id, 1);
    }
    return id;
  }

  void CloseNotification(uint id) { shown.push_back(fmt::format("close {}", id)); }

 Q_SIGNALS:
  void ActivationToken(uint id, const QString& token);
  void ActionInvoked(uint id, const QString& action);
  void NotificationClosed(uint id, uint reason);

 private:
  const QString name_ = QStringLiteral("org.freedesktop.Notifications");
  const QString path_ = QStringLiteral("/org/freedesktop/Notifications");
  QDBusConnection bus_;
  uint lastId_ = 0;
  std::vector<QDBusMessage> answers_;
};

}  // namespace quillet
