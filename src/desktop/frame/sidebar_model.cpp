// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar_model.h"

#include <QLocale>
#include <algorithm>

#include "desktop/frame/section_table.h"
#include "desktop/look/wrapped_tip.h"
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

void setTarget(QStandardItem& item, const SidebarTarget& target) {
  item.setData(static_cast<int>(target.section), SectionRole);
  item.setData(static_cast<qlonglong>(target.collection), CollectionRole);
  item.setData(static_cast<qlonglong>(target.savedSearch), SavedSearchRole);
}

QStandardItem* made(SectionId section) {
  auto* item = new QStandardItem(nameOf(section));
  setTarget(*item, {section});
  item->setData(QString::fromLatin1(faceOf(section).icon), SymbolRole);
  item->setToolTip(item->text());
  setSentence(*item);
  return item;
}

QStandardItem* madeHead(const QString& name) {
  auto* head = new QStandardItem(name);
  head->setFlags(Qt::NoItemFlags);
  return head;
}

SidebarTarget targetOf(const CollectionCount& collection) {
  return {SectionId::collections, collection.key};
}
SidebarTarget targetOf(const SavedQuery& search) { return {SectionId::search, 0, search.key}; }

void setName(QStandardItem& item, const QString& name) {
  item.setText(name);
  item.setToolTip(wrappedTip(name));
}

void fill(QStandardItem& item, const CollectionCount& collection) {
  setName(item, collectionLine(collection.name));
  item.setData(iconOfSymbol(collection.symbolName), SymbolRole);
  item.setData(number(collection.apps), CountRole);
  setSentence(item);
}

void fill(QStandardItem& item, const SavedQuery& search) {
  setName(item, searchLine(search.name));
  item.setData(QStringLiteral("bookmark"), SymbolRole);
  setSentence(item);
}

/// Makes the items below `parent` those of `rows`, in their order; what stays keeps its index.
template <typename Row>
void setChildren(QStandardItem& parent, const std::vector<Row>& rows) {
  const auto holds = [&](int at, const Row& row) {
    return SidebarModel::targetOf(parent.child(at)->index()) == targetOf(row);
  };
  for (int i = parent.rowCount() - 1; i >= 0; --i) {
    if (std::ranges::none_of(rows, [&](const Row& row) { return holds(i, row); }))
      parent.removeRow(i);
  }
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    const Row& row = rows[static_cast<std::size_t>(i)];
    int from = i;
    while (from < parent.rowCount() && !holds(from, row)) ++from;
    if (from == parent.rowCount()) {
      auto* item = new QStandardItem;
      setTarget(*item, targetOf(row));
      parent.insertRow(i, item);
    } else if (from != i) {
      parent.insertRow(i, parent.takeRow(from));
    }
    fill(*parent.child(i), row);
  }
}

QStandardItem* childFor(const QStandardItem& parent, const SidebarTarget& target) {
  for (int i = 0; i < parent.rowCount(); ++i) {
    if (SidebarModel::targetOf(parent.child(i)->index()) == target) return parent.child(i);
  }
  return nullptr;
}

}  // namespace

SidebarModel::SidebarModel(const std::vector<SectionId>& sections) {
  addGroup(SectionGroup::discover, sections);
  addGroup(SectionGroup::library, sections);
}

void SidebarModel::addGroup(SectionGroup group, const std::vector<SectionId>& sections) {
  auto* head = madeHead(group == SectionGroup::discover ? tr("Discover") : tr("Library"));
  for (const SectionId section : sections) {
    if (faceOf(section).group == group) head->appendRow(made(section));
  }
  if (!head->hasChildren()) {
    delete head;
    return;
  }
  appendRow(head);
}

void SidebarModel::setCounts(const LibraryCounts& counts) {
  setTexts(SectionId::deals, countText(counts.deals));
  setTexts(SectionId::watchlist, countText(counts.watched));
  setTexts(SectionId::alerts, {}, countText(counts.unreadAlerts));
  setTexts(SectionId::collections, countText(static_cast<std::int64_t>(counts.collections.size())));
  setTexts(SectionId::myApps, ownedText(counts));
  setCollections(counts.collections);
}

void SidebarModel::setCompared(std::size_t apps) {
  setTexts(SectionId::compare, countText(static_cast<std::int64_t>(apps)));
}

/// Without Search nothing could run them.
void SidebarModel::setSavedSearches(const std::vector<SavedQuery>& searches) {
  if (itemOf(SectionId::search) == nullptr) return;
  if (searches.empty()) {
    if (saved_ != nullptr) removeRow(saved_->row());
    saved_ = nullptr;
    return;
  }
  if (saved_ == nullptr) {
    saved_ = madeHead(tr("Saved Searches"));
    appendRow(saved_);
  }
  setChildren(*saved_, searches);
}

QModelIndex SidebarModel::find(const SidebarTarget& target) const {
  const QStandardItem* section = itemOf(target.section);
  if (section == nullptr) return {};
  const QStandardItem* child = nullptr;
  if (target.collection != 0) child = childFor(*section, target);
  if (target.savedSearch != 0 && saved_ != nullptr) child = childFor(*saved_, target);
  return (child == nullptr ? section : child)->index();
}

std::optional<SidebarTarget> SidebarModel::targetOf(const QModelIndex& index) {
  if (!index.data(SectionRole).isValid()) return {};
  return SidebarTarget{static_cast<SectionId>(index.data(SectionRole).toInt()),
                       index.data(CollectionRole).toLongLong(),
                       index.data(SavedSearchRole).toLongLong()};
}

QModelIndex SidebarModel::savedSearches() const {
  return saved_ == nullptr ? QModelIndex() : saved_->index();
}

QStandardItem* SidebarModel::itemOf(SectionId section) const {
  for (int i = 0; i < rowCount(); ++i) {
    if (QStandardItem* found = childFor(*item(i), {section})) return found;
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
  if (QStandardItem* parent = itemOf(SectionId::collections)) setChildren(*parent, collections);
}

}  // namespace quillet
