// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/dialogs/settings_page.h"
#include "system/settings_keys.h"

namespace quillet {

/// A row for the address of a server, which is judged while it is typed and kept once the field is
/// left or Enter pressed, unless it cannot be used. It counts from the next start.
SettingRow& addAddress(SettingsPage& page, const SettingTexts& texts, const TextSetting& setting,
                       const QString& unset);

}  // namespace quillet
