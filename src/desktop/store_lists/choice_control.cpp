// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/choice_control.h"

#include <QActionGroup>
#include <QMenu>

#include "desktop/look/menu_button.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

QStringList textsOf(const std::vector<SelectorChoice>& choices) {
  QStringList texts;
  for (const SelectorChoice& choice : choices) texts << choice.text;
  return texts;
}

}  // namespace

ChoiceControl::ChoiceControl(const QString& name, std::vector<SelectorChoice> choices,
                             QWidget* parent)
    : QWidget(parent),
      name_(name),
      segments_(new SegmentedControl(name, textsOf(choices), this)),
      button_(new MenuButton(this)),
      actions_(new QActionGroup(this)) {
  auto* menu = new QMenu(button_);
  menu->setToolTipsVisible(true);
  for (int index = 0; index < static_cast<int>(choices.size()); ++index) {
    QAction* action = actions_->addAction(choices[static_cast<std::size_t>(index)].text);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, index] { take(index); });
  }
  menu->addActions(actions_->actions());
  button_->setMenu(menu);
  button_->setToolTip(name);
  button_->hide();
  connect(segments_, &SegmentedControl::chosenChanged, this, &ChoiceControl::take);
  show(std::move(choices));
}

void ChoiceControl::take(int index) {
  std::vector<SelectorChoice> choices = choices_;
  for (SelectorChoice& each : choices) each.isChosen = false;
  SelectorChoice& taken = choices[static_cast<std::size_t>(index)];
  taken.isChosen = true;
  const std::string id = taken.id;
  show(std::move(choices));
  Q_EMIT chosenChanged(id);
}

void ChoiceControl::show(std::vector<SelectorChoice> choices) {
  choices_ = std::move(choices);
  int index = 0;
  for (const SelectorChoice& choice : choices_) {
    QAction* action = actions_->actions().at(index);
    action->setEnabled(choice.whyNot.isEmpty());
    action->setToolTip(choice.whyNot.isEmpty() ? QString() : wrappedTip(choice.whyNot));
    segments_->setOffered(index, choice.whyNot.isEmpty(), choice.whyNot);
    if (choice.isChosen) {
      action->setChecked(true);
      segments_->choose(index);
      button_->setText(choice.text);
      button_->setAccessibleName(QStringLiteral("%1: %2").arg(name_, choice.text));
    }
    ++index;
  }
}

void ChoiceControl::setShort(bool isShort) {
  isShort_ = isShort;
  segments_->setVisible(!isShort);
  button_->setVisible(isShort);
}

void ChoiceControl::takeFocus(Qt::FocusReason reason) {
  isShort_ ? button_->setFocus(reason) : segments_->takeFocus(reason);
}

QSize ChoiceControl::sizeOf(bool isShort) const {
  return isShort ? button_->sizeHint() : segments_->sizeHint();
}

void ChoiceControl::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  segments_->setGeometry(rect());
  button_->setGeometry(rect());
}

}  // namespace quillet
