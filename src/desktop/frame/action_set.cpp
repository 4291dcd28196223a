// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/action_set.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QScopedValueRollback>

namespace quillet {

namespace {

QString idOf(const ActionRow& row) {
  return QString::fromUtf8(row.id.data(), static_cast<qsizetype>(row.id.size()));
}

QList<QKeySequence> sequencesOf(const ActionRow& row) {
  return QKeySequence::listFromString(QString::fromLatin1(row.keys), QKeySequence::PortableText);
}

/// A button that shows the action tells its keys along with its name.
QString tipOf(const ActionRow& row) {
  const QList<QKeySequence> keys = sequencesOf(row);
  if (keys.isEmpty()) return textOf(row);
  return textOf(row) + QStringLiteral(" (%1)").arg(keys.front().toString(QKeySequence::NativeText));
}

}  // namespace

ActionSet::ActionSet(std::span<const ActionRow> rows, ActionContext& context, QWidget& window)
    : rows_(rows), context_(context) {
  std::map<MenuId, QActionGroup*> choices;  // one in each menu
  for (const ActionRow& row : rows) {
    if (row.run == nullptr) continue;
    QActionGroup*& group = choices[row.menu];
    if (group == nullptr) {
      group = new QActionGroup(this);
      group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    }
    QAction* action = made(row, *group, window);
    actions_.emplace(row.id, action);
    window.addAction(action);
  }
}

QAction* ActionSet::made(const ActionRow& row, QActionGroup& choices, QWidget& window) {
  auto* action = new QAction(textOf(row), &window);
  action->setObjectName(idOf(row));
  action->setToolTip(tipOf(row));
  action->setShortcuts(sequencesOf(row));
  action->setCheckable(row.tick != ActionTick::none);
  if (row.tick == ActionTick::choice) action->setActionGroup(&choices);
  if (row.tick == ActionTick::check) {
    // Not "triggered": a screen reader ticks the button that shows it.
    connect(action, &QAction::toggled, this, [this, &row] {
      if (!isUpdating_) run(row);
    });
  } else {
    connect(action, &QAction::triggered, this, [this, &row] { run(row); });
  }
  return action;
}

void ActionSet::run(const ActionRow& row) {
  row.run(context_);
  update();
}

void ActionSet::update() {
  const QScopedValueRollback updating(isUpdating_, true);
  for (const ActionRow& row : rows_) {
    if (row.run == nullptr) continue;
    QAction& action = (*this)[row.id];
    if (row.label != nullptr) action.setText(row.label(context_));
    action.setEnabled(row.enabled == nullptr || row.enabled(context_));
    if (row.checked != nullptr) action.setChecked(row.checked(context_));
  }
}

QString textOf(const ActionRow& row) { return QCoreApplication::translate(row.context, row.text); }

QString keysOf(const ActionRow& row) {
  QStringList keys;
  for (const QKeySequence& each : sequencesOf(row))
    keys.append(each.toString(QKeySequence::NativeText));
  return keys.join(QStringLiteral(", "));
}

}  // namespace quillet
