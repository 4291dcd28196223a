// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sort_menu.h"

#include <QActionGroup>
#include <QCoreApplication>

namespace quillet {

SortMenu::SortMenu(QWidget* parent) : QMenu(parent) {
  setTitle(tr("Sort By"));
  menuAction()->setObjectName(QStringLiteral("sort-by"));
}

void SortMenu::setChoices(std::span<const SortChoice> choices, const std::string& chosen) {
  if (choices.data() != shown_ || actions().size() != static_cast<qsizetype>(choices.size()))
    rebuild(choices);
  for (QAction* action : actions())
    action->setChecked(action->data().toString().toStdString() == chosen);
  if (!actions().isEmpty() && chosenText().isEmpty()) actions().front()->setChecked(true);
  menuAction()->setEnabled(hasChoices());
}

QString SortMenu::chosenText() const {
  for (const QAction* action : actions()) {
    if (action->isChecked()) return action->text();
  }
  return {};
}

void SortMenu::rebuild(std::span<const SortChoice> choices) {
  clear();
  shown_ = choices.data();
  delete findChild<QActionGroup*>();
  auto* group = new QActionGroup(this);
  for (const SortChoice& choice : choices) {
    QAction* action = group->addAction(QCoreApplication::translate("Rows", choice.text));
    action->setCheckable(true);
    action->setData(QString::fromUtf8(choice.id.data(), static_cast<qsizetype>(choice.id.size())));
    connect(action, &QAction::triggered, this,
            [this, id = std::string(choice.id)] { Q_EMIT this->chosen(id); });
  }
  addActions(group->actions());
}

}  // namespace quillet
