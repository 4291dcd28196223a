// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/settings_edit.h"

namespace quillet {

SettingsEdit::SettingsEdit(LiveSettings& settings) : settings_(settings) {
  connect(&settings, &LiveSettings::changed, this, &SettingsEdit::changed);
}

void SettingsEdit::write(const WritableSettings::Values& values) {
  attempt([&] { settings_.write(values); });
}

void SettingsEdit::attempt(const std::function<void()>& change) {
  try {
    change();
  } catch (const std::exception& error) {
    Q_EMIT changed();
    Q_EMIT failed(QString::fromUtf8(error.what()));
    return;
  }
  Q_EMIT succeeded();
}

}  // namespace quillet
