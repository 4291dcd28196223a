// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/row_filter_model.h"

#include <QMimeData>
#include <algorithm>

#include "desktop/models/app_drag.h"

namespace quillet {

namespace {

RowMarks marksOf(const RowTable& table, const std::vector<std::string>& chips) {
  RowMarks marks;
  for (const ChipChoice& chip : table.chips) {
    if (std::ranges::find(chips, chip.id) != chips.end()) marks |= chip.mark;
  }
  return marks;
}

/// The one of that ID, else the table's first; null for a table without.
/// Null where the rows come in their order.
const SortChoice* sortOf(const RowTable& table, std::string_view id) {
  if (table.sorts.empty()) return nullptr;
  const auto found = std::ranges::find(table.sorts, id, &SortChoice::id);
  const SortChoice& chosen = found == table.sorts.end() ? table.sorts.front() : *found;
  return chosen.before == nullptr ? nullptr : &chosen;
}

}  // namespace

RowFilterModel::RowFilterModel(AppListModel& rows, const RowTable& table, QObject* parent)
    : QSortFilterProxyModel(parent), rows_(rows), table_(table), sort_(sortOf(table, {})) {
  setSourceModel(&rows);
  if (sort_ != nullptr) sort(0);
}

void RowFilterModel::setView(const RowView& view) {
  const SortChoice* const before = std::exchange(sort_, sortOf(table_, view.sort));
  const bool picksOthers = view.text != view_.text || view.chips != view_.chips;
  view_ = view;
  folded_ = view.text.simplified().toCaseFolded();
  marks_ = marksOf(table_, view.chips);
  if (picksOthers) invalidateFilter();
  if (sort_ != before) invalidate();
}

const AppRow& RowFilterModel::at(int row) const {
  return rows_.at(mapToSource(index(row, 0)).row());
}

int RowFilterModel::find(const RowKey& key) const {
  const int row = rows_.find(key);
  return row < 0 ? -1 : mapFromSource(rows_.index(row)).row();
}

QVariant RowFilterModel::data(const QModelIndex& index, int role) const {
  if (role != HeadingRole) return QSortFilterProxyModel::data(index, role);
  if (!index.isValid() || !table_.layout.hasDays || !isInOwnOrder()) return {};
  const QString& day = at(index.row()).day;
  return index.row() > 0 && at(index.row() - 1).day == day ? QVariant() : QVariant(day);
}

QMimeData* RowFilterModel::mimeData(const QModelIndexList& indexes) const {
  QModelIndexList ordered = indexes;
  std::ranges::sort(ordered, {}, &QModelIndex::row);
  std::vector<NamedKey> apps;
  for (const QModelIndex& index : ordered) {
    const AppRow& row = at(index.row());
    const bool isNew = std::ranges::find(apps, row.key.app, &NamedKey::app) == apps.end();
    if (isNew && row.key.app.trackId != 0) apps.push_back({row.key.app, row.name});
  }
  return apps.empty() ? nullptr : draggedApps(apps).release();
}

/// To add them elsewhere, or to take them there out of the collection that is shown.
Qt::DropActions RowFilterModel::supportedDragActions() const {
  return Qt::CopyAction | Qt::MoveAction;
}

/// In another one days would come back again and again.
bool RowFilterModel::isInOwnOrder() const {
  return sort_ == nullptr || sort_ == &table_.sorts.front();
}

bool RowFilterModel::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
  const AppRow& shown = rows_.at(row);
  return (shown.marks & marks_) == marks_ && shown.folded.contains(folded_);
}

bool RowFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const AppRow& first = rows_.at(left.row());
  const AppRow& second = rows_.at(right.row());
  if (sort_->before(first, second)) return true;
  if (sort_->before(second, first)) return false;
  // In the list's own order as they were read, which is the order that the command line prints.
  if (sort_ == &table_.sorts.front()) return left.row() < right.row();
  return std::tie(first.folded, first.key) < std::tie(second.folded, second.key);
}

}  // namespace quillet
