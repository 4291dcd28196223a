// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <utility>
#include <vector>

namespace quillet {

/// The settings of a desktop's portal, as one that knows these keys has them.
class StandInPortal : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  using Values = QMap<QString, QVariant>;  ///< by key of org.freedesktop.appearance

  StandInPortal(const QDBusConnection& bus, Values values) : bus_(bus), values_(std::move(values)) {
    bus_.registerObject(path_, this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    bus_.registerService(name_);
  }
  ~StandInPortal() override {
    bus_.unregisterService(name_);
    bus_.unregisterObject(path_);
  }

  /// Answers are kept back until release().
  bool isSlow = false;

  void release() {
    for (const QDBusMessage& answer : std::exchange(answers_, {})) bus_.send(answer);
  }

 public Q_SLOTS:
  QDBusVariant Read(const QString& space, const QString& key) {
    if (space != u"org.freedesktop.appearance" || !values_.contains(key)) {
      sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                     QStringLiteral("Requested setting not found"));
      return {};
    }
    const QDBusVariant answer(QVariant::fromValue(QDBusVariant(values_.value(key))));
    if (isSlow) {
      setDelayedReply(true);
      answers_.push_back(message().createReply(QVariant::fromValue(answer)));
    }
    return answer;
  }

 Q_SIGNALS:
  void SettingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  const QString name_ = QStringLiteral("org.freedesktop.portal.Desktop");
  const QString path_ = QStringLiteral("/org/freedesktop/portal/desktop");
  QDBusConnection bus_;
  Values values_;
  std::vector<QDBusMessage> answers_;
};

}  // namespace quillet
