// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>
#include <vector>

namespace quillet {

/// A line of the window of shortcuts.
struct ShortcutLine {
  QString menu;  ///< which group it is in
  QString text;
  QString keys;
};

/// Of all actions that have keys, and of what lists and the viewer of screenshots do by
/// themselves.
[[nodiscard]] std::vector<ShortcutLine> shortcutLines();

/// All keys, in two columns by menu.
class ShortcutsWindow : public QDialog {
  Q_OBJECT

 public:
  explicit ShortcutsWindow(QWidget* parent);
};

}  // namespace quillet
