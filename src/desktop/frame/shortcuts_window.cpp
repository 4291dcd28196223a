// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/shortcuts_window.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

#include "desktop/frame/action_set.h"
#include "desktop/frame/menus.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

/// What lists and pages do by themselves, without an action.
struct OwnKeys {
  const char* keys;
  const char* text;
};

constexpr OwnKeys kInLists[] = {
    {"Return", QT_TRANSLATE_NOOP("Shortcuts", "Open the page of the chosen app")},
    {"Shift+Up; Shift+Down", QT_TRANSLATE_NOOP("Shortcuts", "Choose several apps")},
    {"Tab", QT_TRANSLATE_NOOP("Shortcuts", "To the next control")},
};

QString keysText(const char* keys) {
  QStringList texts;
  for (const QKeySequence& each :
       QKeySequence::listFromString(QString::fromLatin1(keys), QKeySequence::PortableText))
    texts.append(each.toString(QKeySequence::NativeText));
  return texts.join(QStringLiteral(", "));
}

}  // namespace

std::vector<ShortcutLine> shortcutLines() {
  std::vector<ShortcutLine> lines;
  for (const ActionRow& row : actionRows()) {
    if (const QString keys = keysOf(row); !keys.isEmpty())
      lines.push_back({menuTitle(row.menu), textOf(row), keys});
  }
  for (const OwnKeys& own : kInLists) {
    lines.push_back({menuTitle(MenuId::none), QCoreApplication::translate("Shortcuts", own.text),
                     keysText(own.keys)});
  }
  return lines;
}

ShortcutsWindow::ShortcutsWindow(QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Keyboard Shortcuts"));
  resize(520, 560);
  auto* tree = new QTreeWidget;
  tree->setAccessibleName(tr("Shortcuts"));
  tree->setColumnCount(2);
  tree->setHeaderLabels({tr("Action"), tr("Keys")});
  tree->setRootIsDecorated(false);
  tree->setItemsExpandable(false);
  tree->setSelectionMode(QAbstractItemView::SingleSelection);
  tree->setFrameShape(QFrame::NoFrame);
  tree->setUniformRowHeights(true);
  QTreeWidgetItem* group = nullptr;
  for (const ShortcutLine& line : shortcutLines()) {
    if (group == nullptr || group->text(0) != line.menu) {
      group = new QTreeWidgetItem(tree, {line.menu});
      group->setFont(0, lookOf(*this).text.font(kRowType));
      group->setFlags(Qt::ItemIsEnabled);
    }
    new QTreeWidgetItem(group, {line.text, line.keys});
  }
  tree->expandAll();
  tree->setIndentation(16);
  tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  tree->header()->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(tree);
  auto* close = new QPushButton(tr("Close"));
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  layout->addWidget(close, 0, Qt::AlignRight);
}

}  // namespace quillet
