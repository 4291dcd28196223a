// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHeaderView>

#include "desktop/images/image_store.h"
#include "desktop/lists/row_pictures.h"
#include "desktop/sections/compare/compare_model.h"

namespace quillet {

/// The apps above their columns, each with its picture, name and maker. Dragged, a column is to
/// stand elsewhere; the cross removes it.
class CompareApps : public QHeaderView {
  Q_OBJECT

 public:
  /// Both outlive it.
  CompareApps(const CompareModel& model, ImageStore& images, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  /// The column that is chosen; -1 for none.
  void setChosen(int column);

 Q_SIGNALS:
  void removeAsked(int column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int column) const override;
  void mousePressEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  [[nodiscard]] QRect crossIn(const QRect& section) const;
  [[nodiscard]] QRect sectionRect(int column) const;

  const CompareModel& model_;
  ImageStore& images_;
  mutable RowPictures pictures_;
  int hovered_ = -1;
  int chosen_ = -1;
};

/// What apps are compared by, before the rows.
class CompareLabels : public QHeaderView {
  Q_OBJECT

 public:
  /// It outlives the view.
  CompareLabels(const CompareModel& model, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int row) const override;

 private:
  const CompareModel& model_;
};

/// Between a column's left edge and what stands in it.
inline constexpr int kCompareInset = 16;

/// Whether the line below that row ends the table.
[[nodiscard]] bool endsTable(const CompareModel& model, int row);

}  // namespace quillet
