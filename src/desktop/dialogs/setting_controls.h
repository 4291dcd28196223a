// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
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

/// One number that a setting can have, and what it is called.
struct NumberChoice {
  std::int64_t value;
  QString text;
};

/// A row with a list of numbers. One that is kept and not offered is offered too, as `otherText`
/// calls it.
SettingRow& addNumberList(SettingsPage& page, const SettingTexts& texts,
                          const WholeSetting& setting, const std::vector<NumberChoice>& choices,
                          std::function<QString(std::int64_t)> otherText);

/// One flag of several that belong together.
struct FlagChoice {
  QString text;
  FlagSetting setting;
};

/// A row with check boxes, one below the other.
SettingRow& addChecks(SettingsPage& page, const SettingTexts& texts,
                      const std::vector<FlagChoice>& choices);

}  // namespace quillet
