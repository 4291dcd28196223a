// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/applications_rows.h"

#include <QCoreApplication>
#include <QMenu>
#include <algorithm>

#include "desktop/dialogs/setting_controls.h"
#include "desktop/look/menu_button.h"
#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "desktop/services/scan_folders.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

QString foldersText(const FolderList& folders) {
  if (folders.empty()) return tr("None chosen");
  QStringList lines;
  for (const auto& each : folders) lines << plainLine(each.string());
  return lines.join(u'\n');
}

void change(SettingsEdit& edit, const std::function<void(FolderList&)>& how) {
  edit.attempt([&edit, &how] {
    FolderList folders = chosenFolders(edit.settings());
    how(folders);
    writeFolders(edit.settings(), folders);
  });
}

void addFolder(SettingsPage& page, Prompts& prompts) {
  SettingsEdit& edit = page.edit();
  const FolderList chosen = chosenFolders(edit.settings());
  prompts.chooseFolder(
      {tr("Choose an Applications Folder"), chosen.empty() ? "/" : chosen.back().parent_path()},
      &page, [&edit](const std::filesystem::path& folder) {
        change(edit, [&folder](FolderList& folders) {
          if (std::ranges::find(folders, folder) == folders.end()) folders.push_back(folder);
        });
      });
}

/// A folder that is taken out keeps its apps in My Apps.
void fillMenu(QMenu& menu, SettingsPage& page, Prompts& prompts) {
  menu.clear();
  QObject::connect(menu.addAction(tr("Add Folder…")), &QAction::triggered, &page,
                   [&page, &prompts] { addFolder(page, prompts); });
  menu.addSeparator();
  SettingsEdit& edit = page.edit();
  for (const auto& each : chosenFolders(edit.settings())) {
    const QString text = tr("Remove “%1”").arg(plainLine(each.string()));
    QObject::connect(menu.addAction(controlText(text)), &QAction::triggered, &page, [&edit, each] {
      change(edit, [&each](FolderList& folders) { std::erase(folders, each); });
    });
  }
}

}  // namespace

void addApplications(SettingsPage& page, const ViewWorld& views) {
  auto* button = new MenuButton;
  button->setAutoDefault(false);
  button->setText(tr("Folders"));
  auto* menu = new QMenu(button);
  button->setMenu(menu);
  Prompts& prompts = views.prompts;
  QObject::connect(menu, &QMenu::aboutToShow, &page,
                   [menu, &page, &prompts] { fillMenu(*menu, page, prompts); });
  SettingRow& row =
      page.add({tr("Applications folders"), {}, tr("scan installed apps disk mounted")}, button);
  page.owns(kApplicationsFolders.key);
  SettingsEdit& edit = page.edit();
  page.follow([&row, &edit] { row.setDetail(foldersText(chosenFolders(edit.settings()))); });
  addSwitch(page,
            {tr("Scan at start"), tr("What is installed in these folders goes into My Apps"),
             tr("applications installed")},
            kScanAtStart);
}

}  // namespace quillet
