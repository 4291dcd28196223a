// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/shortcuts_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <span>

#include "desktop/frame/action_set.h"
#include "desktop/frame/menus.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

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

constexpr OwnKeys kAtScreenshots[] = {
    {"Left; Right", QT_TRANSLATE_NOOP("Shortcuts", "To another screenshot")},
    {"Z; Space", QT_TRANSLATE_NOOP("Shortcuts", "Actual size, or fitted into the window")},
    {"Ctrl++; Ctrl+-; Ctrl+0", QT_TRANSLATE_NOOP("Shortcuts", "Larger, smaller, fitted")},
    {"Up; Down", QT_TRANSLATE_NOOP("Shortcuts", "Move what is larger than the window")},
    {"Shift+Left; Shift+Right", QT_TRANSLATE_NOOP("Shortcuts", "Move it to the side")},
    {"Ctrl+C", QT_TRANSLATE_NOOP("Shortcuts", "Copy the screenshot")},
    {"Ctrl+S", QT_TRANSLATE_NOOP("Shortcuts", "Save the screenshot")},
    {"Ctrl+Shift+S", QT_TRANSLATE_NOOP("Shortcuts", "Save all screenshots")},
    {"Esc", QT_TRANSLATE_NOOP("Shortcuts", "Back to the page")},
};

/// A row of the window: the name, and the keys at the end; groups stand apart.
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    Look& look = lookOf(*option.widget);
    const QRectF line(option.rect);
    if (isGroup(index)) {
      look.text.draw(*painter, {QRectF(0, line.bottom() - 24, line.width(), 20)},
                     index.data().toString(), kRowType, look[Token::text]);
      return;
    }
    if (option.state.testFlag(QStyle::State_Selected) && index.column() == 0) {
      const QRectF whole(0, line.top(), option.widget->width(), line.height());
      paintBox(*painter, whole, 7, look[Token::selection]);
    }
    const bool isName = index.column() == 0;
    look.text.drawElided(*painter, {line.adjusted(isName ? 0 : 8, 0, -8, 0)},
                         index.data().toString(), isName ? kBodyType : kSmallControlType,
                         look[isName ? Token::text : Token::secondary]);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    const int width = QStyledItemDelegate::sizeHint(option, index).width() + 24;
    if (!isGroup(index)) return {width, 26};
    return {0, index.row() == 0 ? 28 : 40};
  }

 private:
  static bool isGroup(const QModelIndex& index) { return !index.parent().isValid(); }
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
  const auto add = [&](const QString& group, std::span<const OwnKeys> keys) {
    for (const OwnKeys& own : keys)
      lines.push_back(
          {group, QCoreApplication::translate("Shortcuts", own.text), keysText(own.keys)});
  };
  add(menuTitle(MenuId::none), kInLists);
  add(QCoreApplication::translate("Shortcuts", "Screenshots"), kAtScreenshots);
  return lines;
}

ShortcutsWindow::ShortcutsWindow(QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Keyboard Shortcuts"));
  resize(480, 600);
  auto* tree = new QTreeWidget;
  tree->setAccessibleName(tr("Shortcuts"));
  tree->setColumnCount(2);
  tree->setHeaderLabels({tr("Action"), tr("Keys")});
  tree->setRootIsDecorated(false);
  tree->setItemsExpandable(false);
  tree->setSelectionMode(QAbstractItemView::SingleSelection);
  tree->setFrameShape(QFrame::NoFrame);
  tree->setItemDelegate(new LineDelegate(tree));
  tree->setAllColumnsShowFocus(true);
  QTreeWidgetItem* group = nullptr;
  for (const ShortcutLine& line : shortcutLines()) {
    if (group == nullptr || group->text(0) != line.menu) {
      group = new QTreeWidgetItem(tree, {line.menu});
      group->setFlags(Qt::ItemIsEnabled);
      group->setFirstColumnSpanned(true);
    }
    new QTreeWidgetItem(group, {line.text, line.keys});
  }
  tree->expandAll();
  tree->setIndentation(16);
  tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  tree->header()->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(tree);
  auto* close = new QPushButton(tr("Close"));
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  layout->addWidget(close, 0, Qt::AlignRight);
}

}  // namespace quillet
