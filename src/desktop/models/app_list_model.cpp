// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/app_list_model.h"

#include <algorithm>
#include <utility>

namespace quillet {

namespace {

std::map<RowKey, AppRow*> byKey(std::vector<AppRow>& rows) {
  std::map<RowKey, AppRow*> keyed;
  for (AppRow& row : rows) keyed.emplace(row.key, &row);
  return keyed;
}

}  // namespace

int AppListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant AppListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const AppRow& row = at(index.row());
  switch (role) {
    case Qt::DisplayRole: return row.name;
    case Qt::AccessibleTextRole: return sentenceOf(row);
    case KeyRole: return QVariant::fromValue(row.key);
    case RowRole: return QVariant::fromValue(&row);
    case ExtrasRole: return QVariant::fromValue(extrasAt(index.row()));
    default: return {};
  }
}

Qt::ItemFlags AppListModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractListModel::flags(index);
  flags.setFlag(Qt::ItemIsDragEnabled, index.isValid() && at(index.row()).key.app.trackId != 0);
  return flags;
}

const RowExtras* AppListModel::extrasAt(int row) const {
  const auto found = extras_.find(at(row).key.app);
  return found == extras_.end() ? nullptr : &found->second;
}

int AppListModel::find(const RowKey& key) const {
  const auto found = places_.find(key);
  return found == places_.end() ? -1 : found->second;
}

bool AppListModel::holds(const AppKey& app) const {
  const auto row = places_.lower_bound({app, 0});
  return row != places_.end() && row->first.app == app;
}

std::vector<LateRow> AppListModel::lateRows() const {
  std::vector<LateRow> late;
  for (const AppRow& row : rows_) {
    if (row.key.app.trackId != 0) late.push_back({row.key.app, row.added});
  }
  return late;
}

void AppListModel::reset(std::vector<AppRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  extras_.clear();
  indexRows();
  endResetModel();
}

void AppListModel::setRows(std::vector<AppRow> rows) {
  const auto now = byKey(rows);
  removeIf([&](const AppRow& row) { return !now.contains(row.key); });
  put(std::move(rows));
}

void AppListModel::arrange(std::vector<AppRow> rows) {
  std::vector<RowKey> order;
  order.reserve(rows.size());
  for (const AppRow& row : rows) order.push_back(row.key);
  setRows(std::move(rows));
  moveTo(order);
}

void AppListModel::setRowsOf(const std::set<AppKey>& apps, std::vector<AppRow> rows) {
  const auto now = byKey(rows);
  removeIf([&](const AppRow& row) { return apps.contains(row.key.app) && !now.contains(row.key); });
  put(std::move(rows));
}

void AppListModel::take(const std::vector<LateFacts>& facts,
                        const std::function<void(AppRow&, const LateFacts&)>& into) {
  Changed changed;
  for (const LateFacts& each : facts) {
    const int place = find({each.app, 0});
    if (place < 0) continue;
    AppRow row = at(place);
    into(row, each);
    replace(place, std::move(row), changed);
  }
  tell(changed);
}

void AppListModel::setExtras(std::map<AppKey, RowExtras> extras) {
  for (auto& [app, each] : extras) {
    extras_.insert_or_assign(app, std::move(each));
    for (auto row = places_.lower_bound({app, 0}); row != places_.end() && row->first.app == app;
         ++row)
      Q_EMIT dataChanged(index(row->second), index(row->second), {ExtrasRole});
  }
}

void AppListModel::keepExtras(const std::set<AppKey>& apps) {
  std::erase_if(extras_, [&](const auto& each) { return !apps.contains(each.first); });
}

/// Neighbours go together: each removal is told to all who show the list.
template <typename Predicate>
void AppListModel::removeIf(Predicate goes) {
  const int before = rowCount();
  for (int last = rowCount() - 1; last >= 0; --last) {
    if (!goes(at(last))) continue;
    int first = last;
    while (first > 0 && goes(at(first - 1))) --first;
    beginRemoveRows({}, first, last);
    rows_.erase(rows_.begin() + first, rows_.begin() + last + 1);
    endRemoveRows();
    last = first;
  }
  if (rowCount() != before) indexRows();
}

void AppListModel::put(std::vector<AppRow> rows) {
  Changed changed;
  std::vector<AppRow> fresh;
  for (AppRow& row : rows) {
    const int place = find(row.key);
    if (place < 0) {
      fresh.push_back(std::move(row));
    } else {
      replace(place, std::move(row), changed);
    }
  }
  tell(changed);
  if (fresh.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(fresh.size()) - 1);
  std::ranges::move(fresh, std::back_inserter(rows_));
  for (int row = first; row < rowCount(); ++row) places_.emplace(at(row).key, row);
  endInsertRows();
}

void AppListModel::replace(int place, AppRow row, Changed& changed) {
  AppRow& old = rows_[static_cast<std::size_t>(place)];
  if (old == row) return;
  old = std::move(row);
  changed = {std::min(changed.first, place), std::max(changed.last, place)};
}

/// Once for all: whoever orders the rows would order them anew each time.
void AppListModel::tell(const Changed& changed) {
  if (changed.last >= 0) Q_EMIT dataChanged(index(changed.first), index(changed.last));
}

/// The keys of all rows that there are, each once.
void AppListModel::moveTo(const std::vector<RowKey>& order) {
  if (std::ranges::equal(rows_, order, {}, &AppRow::key)) return;
  Q_EMIT layoutAboutToBeChanged();
  const QModelIndexList before = persistentIndexList();
  std::vector<RowKey> kept;
  for (const QModelIndex& index : before) kept.push_back(at(index.row()).key);
  std::vector<AppRow> moved;
  moved.reserve(rows_.size());
  for (const RowKey& key : order)
    moved.push_back(std::move(rows_[static_cast<std::size_t>(places_.at(key))]));
  rows_ = std::move(moved);
  indexRows();
  QModelIndexList after;
  for (const RowKey& key : kept) after.append(index(places_.at(key)));
  changePersistentIndexList(before, after);
  Q_EMIT layoutChanged();
}

void AppListModel::indexRows() {
  places_.clear();
  for (int row = 0; row < rowCount(); ++row) places_.emplace(at(row).key, row);
}

}  // namespace quillet
