// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/dialogs/system_choices.h"
#include "desktop/models/view_world.h"

namespace quillet {

class SettingsWindow;
class SkillWindow;
class ToolWindow;
class UpdatesWindow;

/// The settings, and what somebody new is asked. Each window is made when it is first asked for.
class SettingsWindows : public QObject {
  Q_OBJECT

 public:
  /// They stand before `window`. What world and choices refer to outlives this. Made before the
  /// window remembers anything: whether somebody is new here is seen by that.
  SettingsWindows(QWidget& window, const ViewWorld& world, const SystemChoices& system);

  /// What is remembered from one run to the next.
  [[nodiscard]] StateFile& state() const { return world_.state; }

  void showSettings();
  /// With the first page.
  void showGeneral();
  void showWelcome();
  /// Whether it is known where this program lies.
  [[nodiscard]] bool hasTool() const { return !system_.tool.executable.empty(); }
  void showTool();
  /// Whether this installation has the skill for AI agents.
  [[nodiscard]] bool hasSkill() const { return !system_.skill.empty(); }
  void showSkill();
  /// Null where nobody looks for new releases.
  [[nodiscard]] Updates* updates() const { return system_.updates; }
  void showUpdates();
  [[nodiscard]] bool areUpdatesShown() const;
  /// Shows that to somebody who is new here, once.
  void greet();
  /// Whether anything is known of the machine.
  [[nodiscard]] bool hasDiagnostics() const { return system_.diagnostics != nullptr; }
  void showDiagnostics();

 Q_SIGNALS:
  /// Whoever was asked wants to add apps to their own.
  void appsWanted();
  /// Whoever was asked wants their installed apps to be found.
  void scanWanted();

 private:
  QWidget& window_;
  ViewWorld world_;
  SystemChoices system_;
  bool isNew_;
  QPointer<SettingsWindow> settings_;
  QPointer<QWidget> welcome_;
  QPointer<ToolWindow> tool_;
  QPointer<SkillWindow> skill_;
  QPointer<UpdatesWindow> updatesWindow_;
  QPointer<QWidget> diagnostics_;
};

}  // namespace quillet
