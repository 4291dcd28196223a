// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAction>
#include <map>

#include "desktop/frame/action_row.h"

class QActionGroup;

namespace quillet {

/// The actions of a window, made of the rows. Their keys work wherever in the window the focus is,
/// whether or not a menu shows them.
class ActionSet : public QObject {
  Q_OBJECT

 public:
  /// All outlive this; the actions themselves are the children of the window.
  ActionSet(std::span<const ActionRow> rows, ActionContext& context, QWidget& window);

  [[nodiscard]] std::span<const ActionRow> rows() const { return rows_; }
  /// Of a row that can be run.
  [[nodiscard]] QAction& operator[](std::string_view id) const { return *actions_.at(id); }

  /// Asks anew what can be done, and what is ticked.
  void update();

 private:
  void run(const ActionRow& row);
  QAction* made(const ActionRow& row, QActionGroup& choices, QWidget& window);

  std::span<const ActionRow> rows_;
  ActionContext& context_;
  std::map<std::string_view, QAction*> actions_;
  bool isUpdating_ = false;
};

[[nodiscard]] QString textOf(const ActionRow& row);
/// Its keys as the desktop writes them; empty for none.
[[nodiscard]] QString keysOf(const ActionRow& row);

}  // namespace quillet
