// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSortFilterProxyModel>

#include "desktop/models/app_list_model.h"
#include "desktop/models/row_table.h"

namespace quillet {

/// The rows of a list that a view leaves, in its order. Rows that are equal in it stand as they
/// were read in the list's own order, by their names in others.
class RowFilterModel : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  RowFilterModel(AppListModel& rows, const RowTable& table, QObject* parent = nullptr);

  [[nodiscard]] const RowTable& table() const { return table_; }
  [[nodiscard]] const RowView& view() const { return view_; }
  /// IDs that the table does not know are passed over.
  void setView(const RowView& view);

  [[nodiscard]] const AppRow& at(int row) const;
  /// -1 where it is not among those shown.
  [[nodiscard]] int find(const RowKey& key) const;

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  /// The apps of these rows, as they are dragged; null for none.
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
  [[nodiscard]] Qt::DropActions supportedDragActions() const override;

 protected:
  [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  [[nodiscard]] bool isInOwnOrder() const;

  AppListModel& rows_;
  RowTable table_;
  RowView view_;
  QString folded_;
  RowMarks marks_;
  const SortChoice* sort_ = nullptr;
};

}  // namespace quillet
