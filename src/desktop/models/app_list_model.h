// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <vector>

#include "desktop/models/app_row.h"
#include "desktop/models/row_extras.h"

namespace quillet {

/// What an index of a list yields, itself and through RowFilterModel. Records come as pointers,
/// valid until control returns to the event loop.
enum AppRole {
  KeyRole = Qt::UserRole,  ///< RowKey
  RowRole,                 ///< const AppRow*
  ExtrasRole,              ///< const RowExtras*, null before they came
  HeadingRole,             ///< QString: the day above the first of its rows (RowFilterModel alone)
};

/// The rows of one list. Changes come as differences by key, so that whoever looks at a row goes on
/// looking at it.
class AppListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  /// Display: the name. AccessibleText: the whole row in a sentence.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  /// What is an app's can be dragged.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  [[nodiscard]] const AppRow& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  [[nodiscard]] const RowExtras* extrasAt(int row) const;
  /// -1 where there is none.
  [[nodiscard]] int find(const RowKey& key) const;
  /// Whether there is a row of that app.
  [[nodiscard]] bool holds(const AppKey& app) const;
  /// All that are an app's.
  [[nodiscard]] std::vector<LateRow> lateRows() const;

  /// Other rows, of another list.
  void reset(std::vector<AppRow> rows);
  /// The same list, read again: rows come, go and change.
  void setRows(std::vector<AppRow> rows);
  /// The same, for rows that are shown in the order in which they come: those that stay move there.
  void arrange(std::vector<AppRow> rows);
  /// More of them, after those that are there.
  void append(std::vector<AppRow> rows) { put(std::move(rows)); }
  /// Those of these apps alone: `rows` are what there is of them now.
  void setRowsOf(const std::set<AppKey>& apps, std::vector<AppRow> rows);
  /// Takes late facts into the rows that are still there.
  void take(const std::vector<LateFacts>& facts,
            const std::function<void(AppRow&, const LateFacts&)>& into);
  void setExtras(std::map<AppKey, RowExtras> extras);
  /// Drops those of all other apps.
  void keepExtras(const std::set<AppKey>& apps);

 private:
  /// The rows between which all changed ones are.
  struct Changed {
    int first = std::numeric_limits<int>::max();
    int last = -1;
  };

  template <typename Predicate>
  void removeIf(Predicate goes);
  void put(std::vector<AppRow> rows);
  void replace(int place, AppRow row, Changed& changed);
  void tell(const Changed& changed);
  void moveTo(const std::vector<RowKey>& order);
  void indexRows();

  std::vector<AppRow> rows_;
  std::map<RowKey, int> places_;  // of the rows
  std::map<AppKey, RowExtras> extras_;
};

}  // namespace quillet

Q_DECLARE_METATYPE(quillet::RowKey)
