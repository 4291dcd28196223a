// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

#include "desktop/sections/compare/compare_model.h"

namespace quillet {

/// Paints the cells of a comparison.
class CompareCells : public QStyledItemDelegate {
 public:
  /// Outlives it.
  CompareCells(const CompareModel& model, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

  /// How high the row is.
  [[nodiscard]] int rowHeight(int row, const QWidget& view) const;

 private:
  struct Canvas;
  void paintGround(const Canvas& canvas, const QModelIndex& index) const;
  static void paintLines(Canvas& canvas);
  static void paintTotal(Canvas& canvas);
  static void paintLine(Canvas& canvas, double left);

  const CompareModel& model_;
};

}  // namespace quillet
