// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTreeView>

#include "desktop/models/import_model.h"

namespace quillet {

/// The rows of a file that is to be imported, with their ticks. Space ticks the current row, and so
/// does a click on its box.
class ImportTree : public QTreeView {
  Q_OBJECT

 public:
  /// The model outlives it.
  explicit ImportTree(ImportModel& rows);

  /// Where the pointer was pressed in a row.
  enum class Part { text, chevron, box };
  [[nodiscard]] Part partAt(const QModelIndex& index, const QPoint& point) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  bool press(const QPoint& point);

  ImportModel& rows_;
};

}  // namespace quillet
