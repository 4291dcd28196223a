// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/dialogs/storefront_box.h"
#include "desktop/look/switch.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

void addStorefront(SettingsPage& page, const SystemChoices& system) {
  auto* box = new StorefrontBox(system.storefront);
  page.add({tr("Storefront"), tr("Whose prices and apps"), tr("country region store currency")},
           box);
  page.owns(kStorefrontCountry.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(box, &StorefrontBox::chosen, &page, [&edit](const std::string& code) {
    const std::string key(kStorefrontCountry.key);
    edit.attempt([&] {
      if (code.empty()) {
        edit.settings().forget({key});
      } else {
        edit.settings().write({{key, code}});
      }
    });
  });
  page.follow([box, &edit] { box->choose(storefrontCountry(edit.settings()).value_or("")); });
}

/// What the session itself keeps is the truth: nothing of it stands in the settings.
void addLoginItem(SettingsPage& page, LoginItem& item) {
  auto* control = new Switch(tr("Open Quillet at login"));
  control->setFocusPolicy(Qt::StrongFocus);
  page.add({tr("Open Quillet at login"), tr("In the background, without a window"),
            tr("start autostart")},
           control);
  SettingsEdit& edit = page.edit();
  QObject::connect(control, &QAbstractButton::clicked, &page, [&edit, &item](bool isOn) {
    edit.attempt([&item, isOn] { isOn ? item.enable() : item.disable(); });
  });
  page.follow([control, &item] { control->setChecked(item.isEnabled()); });
  page.onReset([control, &item] {
    if (item.isEnabled()) item.disable();
    control->setChecked(item.isEnabled());
  });
}

}  // namespace

SettingsPage* makeGeneralPage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("general"), tr("General"), QStringLiteral("gear"),
                                world.edit);
  addStorefront(*page, world.system);
  addChoice(*page, {tr("Platform for new searches"), {}, tr("mac iphone ipad device")},
            kDefaultPlatform, {{"mac", tr("Mac")}, {"iphone", tr("iPhone")}, {"ipad", tr("iPad")}});
  if (world.system.loginItem != nullptr) addLoginItem(*page, *world.system.loginItem);
  addSwitch(
      *page,
      {tr("Show in the menu bar"), tr("Where the desktop has a place for it"), tr("tray icon")},
      kShowMenuBarExtra);
  addSwitch(*page,
            {tr("Keep checking when the window is closed"), {}, tr("background quit running")},
            kKeepRunning);
  addSwitch(*page,
            {tr("Keep a history of viewed apps"), tr("Apps whose page you look at"),
             tr("privacy remember")},
            kKeepHistory)
      .setLine(false);
  return page;
}

}  // namespace quillet
