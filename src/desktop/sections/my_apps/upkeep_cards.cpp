// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_cards.h"

#include <QMimeData>
#include <algorithm>

namespace quillet {

namespace {

struct Card {
  const AppRow* row;
  int place;  ///< in the list
  Instant released;
};

bool isBefore(const Card& left, const Card& right) {
  return std::tie(left.row->folded, left.place) < std::tie(right.row->folded, right.place);
}

bool isNewer(const Card& left, const Card& right) {
  return left.released == right.released ? isBefore(left, right) : left.released > right.released;
}

std::vector<RowKey> keysOf(const std::vector<Card>& cards) {
  std::vector<RowKey> keys;
  keys.reserve(cards.size());
  for (const Card& each : cards) keys.push_back(each.row->key);
  return keys;
}

bool isOfVerdict(std::size_t column) { return column < indexOf(UpkeepColumn::rosetta); }

}  // namespace

UpkeepCards::UpkeepCards(const RowFilterModel& rows, UpkeepColumn column, QObject* parent)
    : QAbstractListModel(parent), rows_(rows), column_(column) {}

int UpkeepCards::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(keys_.size());
}

const AppRow* UpkeepCards::at(int card) const {
  const int row = rows_.find(keyAt(card));
  return row < 0 ? nullptr : &rows_.at(row);
}

int UpkeepCards::find(const RowKey& key) const {
  const auto found = std::ranges::find(keys_, key);
  return found == keys_.end() ? -1 : static_cast<int>(found - keys_.begin());
}

QVariant UpkeepCards::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == KeyRole) return QVariant::fromValue(keyAt(index.row()));
  const AppRow* row = at(index.row());
  if (row == nullptr) return {};
  switch (role) {
    case Qt::DisplayRole: return cardName(row->name);
    case RowRole: return QVariant::fromValue(row);
    case Qt::AccessibleTextRole: {
      const QString text = cardText(*row, column_);
      return text.isEmpty() ? sentenceOf(*row) : sentenceOf(*row) + QStringLiteral(", ") + text;
    }
    default: return {};
  }
}

Qt::ItemFlags UpkeepCards::flags(const QModelIndex& index) const {
  return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QMimeData* UpkeepCards::mimeData(const QModelIndexList& indexes) const {
  QModelIndexList rows;
  for (const QModelIndex& each : indexes) {
    const int row = rows_.find(keyAt(each.row()));
    if (row >= 0) rows.push_back(rows_.index(row, 0));
  }
  return rows_.mimeData(rows);
}

void UpkeepCards::setKeys(std::vector<RowKey> keys) {
  if (keys == keys_) {
    if (!keys_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    return;
  }
  beginResetModel();
  keys_ = std::move(keys);
  endResetModel();
}

std::array<std::vector<RowKey>, kUpkeepColumns> cardsOf(const RowFilterModel& rows) {
  std::array<std::vector<Card>, kUpkeepColumns> cards;
  for (int i = 0; i < rows.rowCount(); ++i) {
    const AppRow& row = rows.at(i);
    for (std::size_t column = 0; column < kUpkeepColumns; ++column) {
      if (standsIn(row, static_cast<UpkeepColumn>(column)))
        cards.at(column).push_back({&row, i, row.care->released.value_or(Instant())});
    }
  }
  std::array<std::vector<RowKey>, kUpkeepColumns> keys;
  for (std::size_t column = 0; column < kUpkeepColumns; ++column) {
    std::ranges::sort(cards.at(column), isOfVerdict(column) ? isNewer : isBefore);
    keys.at(column) = keysOf(cards.at(column));
  }
  return keys;
}

}  // namespace quillet
