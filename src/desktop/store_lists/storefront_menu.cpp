// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/storefront_menu.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <vector>

#include "desktop/models/storefronts.h"
#include "store/records/storefronts.h"

namespace quillet {

StorefrontMenu::StorefrontMenu(QWidget* parent) : QMenu(parent) {
  setTitle(tr("Storefront"));
  connect(this, &QMenu::aboutToShow, this, &StorefrontMenu::fill);
}

void StorefrontMenu::setChosen(const std::string& code) { chosen_ = code; }

/// Letters that follow one another lead to a name; after a rest they begin another.
void StorefrontMenu::keyPressEvent(QKeyEvent* event) {
  constexpr qint64 kRest = 1000;  // ms
  if (letter_.isValid() && letter_.hasExpired(kRest)) typed_.clear();
  const QString text = event->text();
  const bool isLetter = text.size() == 1 && text[0].isPrint();
  const bool isPlain = !event->modifiers().testFlag(Qt::ControlModifier) &&
                       !event->modifiers().testFlag(Qt::AltModifier);
  // A blank alone chooses what is current.
  if (!isPlain || !isLetter || (typed_.isEmpty() && text[0].isSpace())) {
    QMenu::keyPressEvent(event);
    return;
  }
  typed_ += text;
  letter_.start();
  goToTyped();
}

void StorefrontMenu::goToTyped() {
  for (QAction* action : actions()) {
    if (!action->text().startsWith(typed_, Qt::CaseInsensitive)) continue;
    setActiveAction(action);
    return;
  }
}

void StorefrontMenu::fill() {
  typed_.clear();
  clear();
  delete findChild<QActionGroup*>();
  auto* group = new QActionGroup(this);
  for (const Storefront& each : allStorefronts()) {
    if (static_cast<std::size_t>(group->actions().size()) == kTrackedStorefronts.size())
      addSeparator();
    QAction* action = group->addAction(each.name + u'\t' + QString::fromStdString(each.code));
    action->setCheckable(true);
    action->setChecked(each.code == chosen_);
    connect(action, &QAction::triggered, this, [this, code = each.code] { Q_EMIT chosen(code); });
    addAction(action);
  }
}

}  // namespace quillet
