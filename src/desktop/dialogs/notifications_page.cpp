// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "desktop/dialogs/settings_pages.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/switch.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

QString stateText(std::optional<AuthorizationStatus> status) {
  if (!status) return {};
  switch (*status) {
    case AuthorizationStatus::notDetermined: return tr("Notifications haven't been enabled yet.");
    case AuthorizationStatus::denied:
      return tr(
          "Notifications are turned off. Enable them in System Settings › Notifications to receive "
          "price alerts.");
    case AuthorizationStatus::unavailable:
      return tr("This desktop has no notification service; alerts stay in the list.");
    case AuthorizationStatus::authorized: break;
  }
  return tr("Of alerts of watched apps, as soon as a price check finds them");
}

void addConsent(SettingsPage& page, NotificationChoice& choice) {
  auto* control = new Switch(tr("Notify me"));
  control->setFocusPolicy(Qt::StrongFocus);
  SettingRow& row = page.add({tr("Notify me"), {}, tr("alert message popup enable")}, control);
  page.owns(kNotificationsEnabled.key);
  SettingsEdit& edit = page.edit();
  const auto show = [control, &row, &choice] {
    const auto status = choice.status();
    control->setChecked(status == AuthorizationStatus::authorized);
    control->setEnabled(status && status != AuthorizationStatus::unavailable);
    row.setDetail(stateText(status));
  };
  QObject::connect(control, &QAbstractButton::clicked, &page, [&edit, &choice, show](bool isOn) {
    edit.attempt([&choice, isOn] { isOn ? choice.allow() : choice.refuse(); });
    show();
  });
  QObject::connect(&choice, &NotificationChoice::changed, &page, show);
  page.follow(show);
}

void addTest(SettingsPage& page, NotificationChoice& choice) {
  auto* button = new DialogButton(tr("Send a Test"));
  page.add({tr("See how it looks"), tr("Shows an example"), tr("try test")}, button).setLine(false);
  QObject::connect(button, &QPushButton::clicked, &page, [&choice] { choice.showTest(); });
  const auto show = [button, &choice] {
    button->setEnabled(choice.status() == AuthorizationStatus::authorized);
  };
  QObject::connect(&choice, &NotificationChoice::changed, &page, show);
  page.follow(show);
}

}  // namespace

SettingsPage* makeNotificationsPage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("notifications"), tr("Notifications"),
                                QStringLiteral("bell"), world.edit);
  NotificationChoice& choice = *world.system.notifications;
  addConsent(*page, choice);
  addTest(*page, choice);
  // What the desktop shows may have changed while the window was behind others.
  page->follow([&choice] { choice.refresh(); });
  QObject::connect(&choice, &NotificationChoice::failed, &world.edit, &SettingsEdit::failed);
  return page;
}

}  // namespace quillet
