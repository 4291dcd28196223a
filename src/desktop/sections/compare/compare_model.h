// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>

#include "desktop/sections/compare/compare_sheet.h"

namespace quillet {

/// A sheet as a table: a column an app, a row an aspect. Texts are whole lines.
class CompareModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit CompareModel(QObject* parent = nullptr);

  void show(CompareSheet sheet);
  [[nodiscard]] const CompareSheet& sheet() const { return sheet_; }
  [[nodiscard]] const CompareColumn& column(int column) const {
    return sheet_.columns[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] const CompareCell& cell(const QModelIndex& index) const {
    return column(index.column()).cells[static_cast<std::size_t>(index.row())];
  }
  [[nodiscard]] CompareAspect aspect(int row) const {
    return sheet_.aspects[static_cast<std::size_t>(row)];
  }
  /// -1 for none.
  [[nodiscard]] int columnOf(const AppKey& app) const;
  [[nodiscard]] int rowOf(CompareAspect aspect) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  CompareSheet sheet_;
};

}  // namespace quillet
