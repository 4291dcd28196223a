// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <map>
#include <vector>

#include "desktop/models/row_filter_model.h"
#include "desktop/sections/my_apps/upkeep_columns.h"

namespace quillet {

/// The apps of one column of the board: those rows of the list that stand in it, in its order.
class UpkeepCards : public QAbstractListModel {
  Q_OBJECT

 public:
  /// The rows outlive it.
  UpkeepCards(const RowFilterModel& rows, UpkeepColumn column, QObject* parent);

  [[nodiscard]] UpkeepColumn column() const { return column_; }
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  /// Display: the name as a card has it. AccessibleText: the whole row in a sentence, and what the
  /// column says of it.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

  /// Null where the row went, and setKeys() was not called since.
  [[nodiscard]] const AppRow* at(int card) const;
  [[nodiscard]] const RowKey& keyAt(int card) const {
    return keys_.at(static_cast<std::size_t>(card));
  }
  /// -1 where it does not stand here.
  [[nodiscard]] int find(const RowKey& key) const;

  /// Other cards, or the same whose rows may have changed.
  void setKeys(std::vector<RowKey> keys);

 private:
  const RowFilterModel& rows_;
  UpkeepColumn column_;
  std::vector<RowKey> keys_;
};

/// The cards of each column, from all rows at once: those updated last come first, by name where
/// that says nothing.
[[nodiscard]] std::array<std::vector<RowKey>, kUpkeepColumns> cardsOf(const RowFilterModel& rows);

}  // namespace quillet
