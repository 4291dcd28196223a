// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/settings_windows.h"

#include <utility>

#include "desktop/dialogs/diagnostics_window.h"
#include "desktop/dialogs/settings_window.h"
#include "desktop/dialogs/skill_window.h"
#include "desktop/dialogs/tool_window.h"
#include "desktop/dialogs/updates_window.h"
#include "desktop/dialogs/welcome_window.h"
#include "desktop/look/widgets.h"

namespace quillet {

SettingsWindows::SettingsWindows(QWidget& window, const ViewWorld& world,
                                 const SystemChoices& system)
    : window_(window),
      world_(world),
      system_(system),
      isNew_(isNewHere(world.settings, world.state)) {}

void SettingsWindows::showSettings() {
  if (settings_ == nullptr) settings_ = new SettingsWindow(world_, system_, &window_);
  bringUp(*settings_);
}

void SettingsWindows::showGeneral() {
  showSettings();
  settings_->showFirst();
}

void SettingsWindows::showWelcome() {
  if (welcome_ == nullptr) {
    auto* welcome = new WelcomeWindow(world_, system_, &window_);
    connect(welcome, &WelcomeWindow::appsWanted, this, &SettingsWindows::appsWanted);
    connect(welcome, &WelcomeWindow::scanWanted, this, &SettingsWindows::scanWanted);
    welcome_ = welcome;
    // Asked anew another time.
    welcome_->setAttribute(Qt::WA_DeleteOnClose);
  }
  bringUp(*welcome_);
}

void SettingsWindows::showTool() {
  if (tool_ == nullptr) tool_ = new ToolWindow(system_.tool, &window_);
  tool_->look();
  bringUp(*tool_);
}

void SettingsWindows::showSkill() {
  if (skill_ == nullptr)
    skill_ = new SkillWindow(world_, system_.tool.home, system_.skill, &window_);
  skill_->look();
  bringUp(*skill_);
}

void SettingsWindows::showUpdates() {
  if (updatesWindow_ == nullptr)
    updatesWindow_ = new UpdatesWindow(*system_.updates, world_.prompts, &window_);
  bringUp(*updatesWindow_);
}

bool SettingsWindows::areUpdatesShown() const {
  return updatesWindow_ != nullptr && updatesWindow_->isVisible();
}

void SettingsWindows::showDiagnostics() {
  if (diagnostics_ == nullptr)
    diagnostics_ = new DiagnosticsWindow(world_, *system_.diagnostics, &window_);
  bringUp(*diagnostics_);
}

void SettingsWindows::greet() {
  if (!std::exchange(isNew_, false)) return;
  rememberWelcome(world_.state);
  showWelcome();
}

}  // namespace quillet
