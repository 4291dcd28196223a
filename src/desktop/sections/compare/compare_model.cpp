// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_model.h"

#include <algorithm>

#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

bool isSameTable(const CompareSheet& left, const CompareSheet& right) {
  return left.aspects == right.aspects &&
         std::ranges::equal(left.columns, right.columns, {}, &CompareColumn::app,
                            &CompareColumn::app);
}

}  // namespace

CompareModel::CompareModel(QObject* parent) : QAbstractTableModel(parent) {}

/// What stays the same over a change keeps its cells, so that the current one stays.
void CompareModel::show(CompareSheet sheet) {
  const bool isSame = isSameTable(sheet_, sheet);
  if (!isSame) beginResetModel();
  sheet_ = std::move(sheet);
  if (!isSame) return endResetModel();
  if (sheet_.columns.empty()) return;
  Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

int CompareModel::columnOf(const AppKey& app) const {
  const auto found = std::ranges::find(sheet_.columns, app, &CompareColumn::app);
  return found == sheet_.columns.end() ? -1 : static_cast<int>(found - sheet_.columns.begin());
}

int CompareModel::rowOf(CompareAspect aspect) const {
  const auto found = std::ranges::find(sheet_.aspects, aspect);
  return found == sheet_.aspects.end() ? -1 : static_cast<int>(found - sheet_.aspects.begin());
}

int CompareModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(sheet_.aspects.size());
}

int CompareModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(sheet_.columns.size());
}

QVariant CompareModel::data(const QModelIndex& index, int role) const {
  const QString line = lineOf(cell(index), aspect(index.row()));
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return line;
  if (role == Qt::ToolTipRole && !cell(index).note.isEmpty()) return wrappedTip(line);
  return {};
}

QVariant CompareModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool isAcross = orientation == Qt::Horizontal;
  if (section < 0 || section >= (isAcross ? columnCount() : rowCount())) return {};
  if (role == Qt::ToolTipRole && isAcross) return wrappedTip(column(section).name);
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  return isAcross ? column(section).name : sheet_.labels[section];
}

}  // namespace quillet
