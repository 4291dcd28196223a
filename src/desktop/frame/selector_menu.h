// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <QPointer>

#include "desktop/frame/action_row.h"
#include "desktop/lists/section.h"

namespace quillet {

/// What one selector of the section that is shown may be, in the place of a row of the menu bar.
class SelectorMenu : public QMenu {
  Q_OBJECT

 public:
  /// The row names the menu.
  SelectorMenu(Selector which, const ActionRow& row, QWidget* parent);

  /// Null where none is shown.
  void setSection(Section* section);

 private:
  void fill();

  Selector which_;
  QPointer<Section> section_;
};

}  // namespace quillet
