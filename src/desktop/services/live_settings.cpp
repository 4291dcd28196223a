// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/live_settings.h"

namespace quillet {

void LiveSettings::write(const Values& values) {
  kept_.write(values);
  std::set<std::string> keys;
  for (const auto& [key, value] : values) keys.insert(key);
  Q_EMIT changed(keys);
}

void LiveSettings::forget(const Keys& keys) {
  kept_.forget(keys);
  Q_EMIT changed(keys);
}

}  // namespace quillet
