// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "desktop/dialogs/address_field.h"
#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/dialogs/skill_window.h"
#include "desktop/dialogs/tool_window.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

/// A window each time: it is short, and closes with the settings.
template <typename Open>
SettingRow& addTool(SettingsPage& page, const SettingTexts& texts, Open open) {
  auto* button = new DialogButton(tr("Show…"));
  QObject::connect(button, &QPushButton::clicked, &page,
                   [&page, open] { bringUp(*open(page.window())); });
  return page.add(texts, button);
}

void addTools(SettingsPage& page, const SettingsWorld& world) {
  const SystemChoices system = world.system;
  if (!system.tool.executable.empty())
    addTool(page, {tr("Command-line tool"), {}, tr("terminal install path shell completions")},
            [system](QWidget* window) { return new ToolWindow(system.tool, window); });
  if (!system.skill.empty())
    addTool(page, {tr("Agent skill"), {}, tr("ai install skills")},
            [system, views = world.views](QWidget* window) {
              return new SkillWindow(views, system.tool.home, system.skill, window);
            });
  page.rows().back()->setLine(false);
}

}  // namespace

SettingsPage* makeUpdatesPage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("updates"), tr("Updates & tools"),
                                QStringLiteral("arrow-repeat"), world.edit);
  addSwitch(*page,
            {tr("Look for new releases"), tr("Once a day, in the list below"),
             tr("check for updates version newer")},
            world.system.updates->setting());
  addAddress(*page,
             {tr("List of releases"), {}, tr("feed server address advanced url updates version")},
             kUpdateFeedUrl, tr("None: your system's package manager updates Quillet"));
  addTools(*page, world);
  page->addText(tr(
      "Of a new release Quillet shows what it is called and what it says, and opens its page when "
      "you want it. It never downloads or runs one."));
  return page;
}

}  // namespace quillet
