// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QWidget;

namespace quillet {

enum class ButtonKind {
  plain,
  primary,  ///< the one that a dialog is about
  tinted,   ///< of a state that holds: "Watching"
  flat,     ///< text alone: links, combo boxes in a block's head
  danger,   ///< what cannot be undone
};

/// How a button, tool button, combo box or field is shown; plain where nothing was said.
void setButtonKind(QWidget& widget, ButtonKind kind);
[[nodiscard]] ButtonKind buttonKindOf(const QWidget* widget);

/// The icon before a button's text, or in a tool button: a name of icon_list.txt. It takes its
/// colour from the button's state, which a QIcon would not.
void setIconName(QWidget& widget, const QString& name, double size = 16);
struct ButtonIcon {
  QString name;  ///< empty for none
  double size = 16;
};
[[nodiscard]] ButtonIcon buttonIconOf(const QWidget* widget);

/// A field for searching, whose border is quieter: its glass tells what it is.
void setSearchField(QWidget& field);
[[nodiscard]] bool isSearchField(const QWidget* widget);

}  // namespace quillet
