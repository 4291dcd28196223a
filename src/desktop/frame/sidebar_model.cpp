// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar_model.h"

#include <QLocale>
#include <algorithm>

#include "desktop/frame/plain_tip.h"
#include "desktop/frame/section_table.h"
#include "desktop/models/collection_symbol.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

QString number(std::int64_t value) { return QLocale().toString(static_cast<qlonglong>(value)); }

/// Nothing is counted where there is nothing.
QString countText(std::int64_t value) { return value == 0 ? QString() : number(value); }

QString ownedText(const LibraryCounts& counts) {
  if (counts.updates == 0) return countText(counts.owned);
  if (counts.updates == 1) return SidebarModel::tr("1 update");
  return SidebarModel::tr("%1 updates").arg(number(counts.updates));
}

void setSentence(QStandardItem& item) {
  QString sentence = item.text();
  const QString badge = item.data(BadgeRole).toString();
  const QString count = item.data(CountRole).toString();
  if (!badge.isEmpty()) sentence = SidebarModel::tr("%1, %2 unread").arg(sentence, badge);
  if (!count.isEmpty()) sentence += QStringLiteral(", ") + count;
  item.setData(sentence, Qt::AccessibleTextRole);
}

QStandardItem* made(SectionId section) {
  auto* item = new QStandardItem(nameOf(section));
  item->setData(static_cast<int>(section), SectionRole);
  item->setData(0LL, CollectionRole);
  item->setData(QString::fromLatin1(faceOf(section).icon), SymbolRole);
  item->setToolTip(item->text());
  setSentence(*item);
  return item;
}

QStandardItem* made(RowId collection) {
  auto* item = new QStandardItem;
  item->setData(static_cast<int>(SectionId::collections), SectionRole);
  item->setData(static_cast<qlonglong>(collection), CollectionRole);
  return item;
}

void fill(QStandardItem& item, const CollectionCount& collection) {
  item.setText(collectionNameLine(collection.name));
  item.setToolTip(plainTip(item.text()));
  item.setData(iconOfSymbol(collection.symbolName), SymbolRole);
  item.setData(number(collection.apps), CountRole);
  setSentence(item);
}

RowId collectionOf(const QStandardItem& item) { return item.data(CollectionRole).toLongLong(); }

}  // namespace

SidebarModel::SidebarModel(const std::vector<SectionId>& sections) {
  auto* library = new QStandardItem(tr("Library"));
  library->setFlags(Qt::NoItemFlags);
  for (const SectionId section : sections) library->appendRow(made(section));
  appendRow(library);
}

void SidebarModel::setCounts(const LibraryCounts& counts) {
  setTexts(SectionId::watchlist, countText(counts.watched));
  setTexts(SectionId::alerts, {}, countText(counts.unreadAlerts));
  setTexts(SectionId::collections, countText(static_cast<std::int64_t>(counts.collections.size())));
  setTexts(SectionId::myApps, ownedText(counts));
  setCollections(counts.collections);
}

QModelIndex SidebarModel::find(SectionId section, RowId collection) const {
  const QStandardItem* found = itemOf(section);
  if (found == nullptr) return {};
  for (int i = 0; collection != 0 && i < found->rowCount(); ++i) {
    if (collectionOf(*found->child(i)) == collection) return found->child(i)->index();
  }
  return found->index();
}

QStandardItem* SidebarModel::itemOf(SectionId section) const {
  const QStandardItem* group = item(0);
  for (int i = 0; i < group->rowCount(); ++i) {
    if (group->child(i)->data(SectionRole).toInt() == static_cast<int>(section))
      return group->child(i);
  }
  return nullptr;
}

void SidebarModel::setTexts(SectionId section, const QString& count, const QString& badge) {
  QStandardItem* item = itemOf(section);
  if (item == nullptr) return;
  item->setData(count, CountRole);
  item->setData(badge, BadgeRole);
  setSentence(*item);
}

void SidebarModel::setCollections(const std::vector<CollectionCount>& collections) {
  QStandardItem* parent = itemOf(SectionId::collections);
  if (parent == nullptr) return;
  for (int i = parent->rowCount() - 1; i >= 0; --i) {
    const RowId key = collectionOf(*parent->child(i));
    if (std::ranges::find(collections, key, &CollectionCount::key) == collections.end())
      parent->removeRow(i);
  }
  for (int i = 0; i < static_cast<int>(collections.size()); ++i) {
    const CollectionCount& collection = collections[static_cast<std::size_t>(i)];
    int from = i;
    while (from < parent->rowCount() && collectionOf(*parent->child(from)) != collection.key)
      ++from;
    if (from == parent->rowCount()) {
      parent->insertRow(i, made(collection.key));
    } else if (from != i) {
      parent->insertRow(i, parent->takeRow(from));
    }
    fill(*parent->child(i), collection);
  }
}

}  // namespace quillet
