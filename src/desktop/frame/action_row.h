// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <span>
#include <string_view>

namespace quillet {

struct ActionContext;

/// The menus of the bar, in its order; `none` is in no menu, but in the window of shortcuts.
enum class MenuId { file, edit, view, go, app, library, tools, help, none };

/// What stands before an action in its menu.
enum class ActionTick {
  none,
  check,   ///< on or off
  choice,  ///< one of those beside it
};

/// Something that the user can do. Menus, keys, context menus, the window of shortcuts and what a
/// screen reader says derive from the rows; nothing can be done that has none.
struct ActionRow {
  std::string_view id;  ///< stable: tests and the documentation name it
  const char* text;     ///< with "…" only where more is asked; translated
  const char* keys;     ///< as QKeySequence reads them, several parted by "; "; empty for none
  MenuId menu;
  bool startsGroup;                       ///< a line above it in its menu
  bool (*enabled)(const ActionContext&);  ///< null: always
  void (*run)(ActionContext&);            ///< null: a menu of its own, which the window puts there
  ActionTick tick = ActionTick::none;
  bool (*checked)(const ActionContext&) = nullptr;   ///< of one with a tick
  const char* context = "Actions";                   ///< in which its text is translated
  QString (*label)(const ActionContext&) = nullptr;  ///< its text by now, of one that says more
};

/// All that can be done, in the order of the menus.
[[nodiscard]] std::span<const ActionRow> actionRows();

}  // namespace quillet
