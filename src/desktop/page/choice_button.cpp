// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/choice_button.h"

#include <QActionGroup>
#include <QMenu>
#include <utility>

#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kHeight = 28;  // of controls within blocks

}  // namespace

ChoiceButton::ChoiceButton(const QString& name, QWidget* parent) : MenuButton(parent), name_(name) {
  auto* menu = new QMenu(this);
  menu->setTitle(name);
  setMenu(menu);
  setFixedHeight(kHeight);
  connect(menu, &QMenu::aboutToShow, this, &ChoiceButton::fill);
}

void ChoiceButton::setChoices(std::vector<ButtonChoice> choices) {
  if (choices == choices_) return;
  choices_ = std::move(choices);
  choose(0);
}

void ChoiceButton::choose(std::size_t index) {
  chosen_ = index;
  if (index >= choices_.size()) return;
  const ButtonChoice& choice = choices_[index];
  setText(controlText(choice.shown.isEmpty() ? choice.text : choice.shown));
  setAccessibleName(QStringLiteral("%1: %2").arg(name_, choice.text));
  updateGeometry();
}

void ChoiceButton::fill() {
  menu()->clear();
  delete findChild<QActionGroup*>();
  auto* group = new QActionGroup(this);
  for (std::size_t i = 0; i < choices_.size(); ++i) {
    QAction* action = group->addAction(controlText(choices_[i].text));
    action->setCheckable(true);
    action->setChecked(i == chosen_);
    connect(action, &QAction::triggered, this, [this, i] {
      if (i == chosen_) return;
      choose(i);
      Q_EMIT chosenChanged();
    });
    menu()->addAction(action);
  }
}

}  // namespace quillet
