// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace quillet {

class ActionContext;

/// The menus of the bar, in its order; `none` is in no menu of the bar.
enum class MenuId { file, edit, view, go, app, library, help };

/// Something that the user can do. Menus, keys, context menus, the window of shortcuts and what a
/// screen reader says derive from the rows; nothing can be done that has none.
struct ActionRow {
  std::string_view id;  ///< stable: tests and the documentation name it
  const char* text;     ///< with "…" only where more is asked; translated in the context "Actions"
  const char* keys;     ///< as QKeySequence reads them, several parted by "; "; empty for none
  MenuId menu;
  bool startsGroup = false;                         ///< a line above it in its menu
  bool (*enabled)(const ActionContext&);            ///< null: always
  void (*run)(ActionContext&);                      //
  bool (*checked)(const ActionContext&) = nullptr;  ///< null: nothing to tick
};

}  // namespace quillet
