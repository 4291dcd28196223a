// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <functional>

#include "desktop/dialogs/settings_edit.h"
#include "desktop/dialogs/system_choices.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What the steps are made with. All of it outlives them.
struct WelcomeWorld {
  const ViewWorld& views;
  const SystemChoices& system;
  SettingsEdit& edit;
};

/// One thing that somebody new is asked.
struct WelcomeStep {
  QString title;                    ///< in the list of steps
  QWidget* view;                    ///< what is asked; the stack that shows it owns it
  std::function<void()> takeFocus;  ///< the keyboard goes to what is asked
  /// Keeps the answer. Throws BadSetting or LoginItemError where that cannot be.
  std::function<void()> keep;
};

[[nodiscard]] WelcomeStep makeStoreStep(const WelcomeWorld& world);
/// Only where somebody can be notified.
[[nodiscard]] WelcomeStep makeNotificationsStep(const WelcomeWorld& world);
/// How the user wants to fill My Apps.
enum class AppsWish { later, byHand, scan };
[[nodiscard]] WelcomeStep makeMyAppsStep(std::function<void(AppsWish)> wants);
[[nodiscard]] WelcomeStep makeBackgroundStep(const WelcomeWorld& world);

}  // namespace quillet
