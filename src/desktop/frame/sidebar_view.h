// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

#include "desktop/frame/sidebar_model.h"

namespace quillet {

/// The sidebar with names, or the rail with icons alone.
enum class SidebarShape { full, rail };

/// The tree of places. What is selected is where the user is.
class SidebarView : public QTreeView {
  Q_OBJECT

 public:
  /// The model outlives the view.
  explicit SidebarView(SidebarModel& places);

  void setShape(SidebarShape shape);
  [[nodiscard]] SidebarShape shape() const { return shape_; }

  /// Nobody is told.
  void select(SectionId section, RowId collection);

 Q_SIGNALS:
  /// The user selected it; 0 for no collection.
  void wanted(quillet::SectionId section, quillet::RowId collection);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  bool viewportEvent(QEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void showRows();
  void setHovered(const QModelIndex& index);

  SidebarModel& places_;
  SidebarShape shape_ = SidebarShape::full;
  QPersistentModelIndex hovered_;
  bool isTold_ = true;  ///< whether the user selects
};

}  // namespace quillet
