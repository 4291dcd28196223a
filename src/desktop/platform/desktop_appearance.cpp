// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/desktop_appearance.h"

#include "system/settings_keys.h"

namespace quillet {

Appearance chosenAppearance(Appearance desktop, const Settings& settings) {
  const auto chosen = settings.text(kAppearance.key);
  if (chosen == "light") desktop.isDark = false;
  if (chosen == "dark") desktop.isDark = true;
  const auto motion = settings.text(kReduceMotion.key);
  if (motion == "on") desktop.hasLessMotion = true;
  if (motion == "off") desktop.hasLessMotion = false;
  return desktop;
}

}  // namespace quillet
