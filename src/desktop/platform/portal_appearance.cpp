// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/portal_appearance.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace quillet {
namespace {

QString serviceName() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
QString objectPath() { return QStringLiteral("/org/freedesktop/portal/desktop"); }
QString interfaceName() { return QStringLiteral("org.freedesktop.portal.Settings"); }

/// A setting of the portal, and the one value by which it asks for something.
struct PortalSetting {
  const char* space;
  const char* key;
  uint asking;
  bool Appearance::* wanted;
};

constexpr PortalSetting kSettings[] = {
    // 2 asks for light, 0 for nothing, which is light as well.
    {"org.freedesktop.appearance", "color-scheme", 1, &Appearance::isDark},
    {"org.freedesktop.appearance", "contrast", 1, &Appearance::hasMoreContrast},
    {"org.freedesktop.appearance", "reduced-motion", 1, &Appearance::hasLessMotion},
};

/// An answer is a variant in a variant, a signal's value one alone.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

void PortalAppearance::useBus(const QDBusConnection& bus) {
  bus_.emplace(bus);
  if (!bus_->isConnected()) return;
  auto* owner = new QDBusServiceWatcher(serviceName(), *bus_,
                                        QDBusServiceWatcher::WatchForRegistration, this);
  connect(owner, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::ask);
  bus_->connect(serviceName(), objectPath(), interfaceName(), QStringLiteral("SettingChanged"),
                this, SLOT(takeChange(QDBusMessage)));
  ask();
}

void PortalAppearance::ask() {
  for (const PortalSetting& setting : kSettings) {
    const QString space = QLatin1String(setting.space);
    const QString key = QLatin1String(setting.key);
    QDBusMessage call = QDBusMessage::createMethodCall(serviceName(), objectPath(), interfaceName(),
                                                       QStringLiteral("Read"));
    call << space << key;
    auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, space, key, answer] {
      answer->deleteLater();
      const QDBusPendingReply<QDBusVariant> reply = *answer;
      // An error is a portal that does not know the setting, or none at all.
      if (!reply.isError()) take(space, key, QVariant::fromValue(reply.value()));
    });
  }
}

void PortalAppearance::takeChange(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.size() != 3) return;
  take(arguments[0].toString(), arguments[1].toString(), arguments[2]);
}

void PortalAppearance::take(const QString& space, const QString& key, QVariant value) {
  Appearance next = wanted_;
  for (const PortalSetting& setting : kSettings) {
    if (space != QLatin1String(setting.space) || key != QLatin1String(setting.key)) continue;
    next.*setting.wanted = unwrapped(std::move(value)).toUInt() == setting.asking;
    break;
  }
  if (next == wanted_) return;
  wanted_ = next;
  Q_EMIT changed();
}

}  // namespace quillet
