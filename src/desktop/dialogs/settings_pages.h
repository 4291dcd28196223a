// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/dialogs/settings_page.h"
#include "desktop/dialogs/system_choices.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What the pages of the settings are made with. All but the values outlive them.
struct SettingsWorld {
  const ViewWorld& views;
  const SystemChoices& system;
  SettingsEdit& edit;
};

[[nodiscard]] SettingsPage* makeGeneralPage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeWatchlistPage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeNotificationsPage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeMaintenancePage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeAppearancePage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeDataPage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeStoragePage(const SettingsWorld& world);
[[nodiscard]] SettingsPage* makeUpdatesPage(const SettingsWorld& world);

}  // namespace quillet
