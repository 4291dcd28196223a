// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <map>

#include "desktop/frame/action_set.h"

class QMenuBar;

namespace quillet {

/// Menus that stand in the place of a row, by its ID. Without an owner here.
using Submenus = std::map<std::string_view, QMenu*>;

/// What the menu is called; of `none` what its keys are for.
[[nodiscard]] QString menuTitle(MenuId id);

/// Fills the bar with a menu for each that has rows.
void fillMenuBar(QMenuBar& bar, const ActionSet& actions, const Submenus& submenus);

/// One menu's rows: what can be done with an app, where it is asked with the pointer.
void fillMenu(QMenu& menu, MenuId id, const ActionSet& actions, const Submenus& submenus = {});

}  // namespace quillet
