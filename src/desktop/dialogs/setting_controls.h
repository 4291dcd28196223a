// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/dialogs/settings_page.h"
#include "system/settings_keys.h"

namespace quillet {

/// A row with a switch for a flag.
SettingRow& addSwitch(SettingsPage& page, const SettingTexts& texts, const FlagSetting& setting);

/// One value that a setting can have, and what it is called.
struct SettingChoice {
  std::string_view value;
  QString text;
};

/// A row with a choice of a few words. A value that is none of them counts as the default.
SettingRow& addChoice(SettingsPage& page, const SettingTexts& texts, const TextSetting& setting,
                      const std::vector<SettingChoice>& choices);

}  // namespace quillet
