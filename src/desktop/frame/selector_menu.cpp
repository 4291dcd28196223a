// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/selector_menu.h"

#include <QActionGroup>

#include "desktop/frame/action_set.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

SelectorMenu::SelectorMenu(Selector which, const ActionRow& row, QWidget* parent)
    : QMenu(textOf(row), parent), which_(which) {
  menuAction()->setObjectName(
      QString::fromUtf8(row.id.data(), static_cast<qsizetype>(row.id.size())));
  setToolTipsVisible(true);
  connect(this, &QMenu::aboutToShow, this, &SelectorMenu::fill);
}

void SelectorMenu::setSection(Section* section) {
  section_ = section;
  const bool hasSome = section != nullptr && section->hasSelectors();
  menuAction()->setEnabled(hasSome && !section->choicesOf(which_).empty());
}

void SelectorMenu::fill() {
  clear();
  delete findChild<QActionGroup*>();
  if (section_.isNull()) return;
  auto* group = new QActionGroup(this);
  for (const SelectorChoice& choice : section_->choicesOf(which_)) {
    if (choice.startsGroup) addSeparator();
    QAction* action = group->addAction(QString(choice.text).replace(u'&', QStringLiteral("&&")));
    action->setCheckable(true);
    action->setChecked(choice.isChosen);
    action->setEnabled(choice.whyNot.isEmpty());
    if (!choice.whyNot.isEmpty()) action->setToolTip(wrappedTip(choice.whyNot));
    connect(action, &QAction::triggered, section_,
            [this, id = choice.id] { section_->select(which_, id); });
    addAction(action);
  }
}

}  // namespace quillet
