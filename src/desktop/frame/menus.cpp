// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/menus.h"

#include <QCoreApplication>
#include <QMenuBar>

namespace quillet {

namespace {

struct MenuRow {
  MenuId id;
  const char* title;
};

constexpr MenuRow kMenus[] = {
    {MenuId::file, QT_TRANSLATE_NOOP("Menus", "&File")},
    {MenuId::edit, QT_TRANSLATE_NOOP("Menus", "&Edit")},
    {MenuId::view, QT_TRANSLATE_NOOP("Menus", "&View")},
    {MenuId::go, QT_TRANSLATE_NOOP("Menus", "&Go")},
    {MenuId::app, QT_TRANSLATE_NOOP("Menus", "&App")},
    {MenuId::library, QT_TRANSLATE_NOOP("Menus", "&Library")},
    {MenuId::tools, QT_TRANSLATE_NOOP("Menus", "&Tools")},
    {MenuId::help, QT_TRANSLATE_NOOP("Menus", "&Help")},
};

}  // namespace

QString menuTitle(MenuId id) {
  for (const MenuRow& row : kMenus) {
    if (row.id == id) return QCoreApplication::translate("Menus", row.title).remove(u'&');
  }
  return QCoreApplication::translate("Menus", "Moving around");
}

void fillMenu(QMenu& menu, MenuId id, const ActionSet& actions, const Submenus& submenus) {
  for (const ActionRow& row : actions.rows()) {
    if (row.menu != id) continue;
    if (row.startsGroup && !menu.isEmpty()) menu.addSeparator();
    if (const auto found = submenus.find(row.id); found != submenus.end()) {
      menu.addMenu(found->second);
    } else if (row.run != nullptr) {
      menu.addAction(&actions[row.id]);
    }
  }
}

void fillMenuBar(QMenuBar& bar, const ActionSet& actions, const Submenus& submenus) {
  for (const MenuRow& row : kMenus) {
    QMenu* menu = bar.addMenu(QCoreApplication::translate("Menus", row.title));
    fillMenu(*menu, row.id, actions, submenus);
  }
}

}  // namespace quillet
