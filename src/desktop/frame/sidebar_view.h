// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPersistentModelIndex>
#include <QTimer>
#include <QTreeView>

#include "desktop/frame/sidebar_model.h"
#include "desktop/models/app_texts.h"

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

  /// Where the user is now. Nobody is told.
  void select(const SidebarTarget& target);

 Q_SIGNALS:
  /// The user selected it. A saved search, which asks the store, is wanted once the keys have
  /// rested on it, or with Enter.
  void wanted(const quillet::SidebarTarget& target);
  /// After wanted(): the user wants to go on there.
  void entered();
  /// The user wants the menu of a saved search, at that point of the screen.
  void menuAsked(quillet::RowId savedSearch, const QPoint& at);
  /// Likewise of a collection.
  void collectionMenuAsked(quillet::RowId collection, const QPoint& at);
  /// Apps were dropped there: to be added, or to be moved out of the collection where the user is.
  void dropped(const quillet::SidebarTarget& on, const std::vector<quillet::NamedKey>& apps,
               Qt::DropAction how);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void showRows();
  void setHovered(const QModelIndex& index);
  void setDropTarget(const QModelIndex& index);
  [[nodiscard]] bool takesApps(const SidebarTarget& target) const;
  [[nodiscard]] Qt::DropAction dropActionOf(const QDropEvent& event,
                                            const SidebarTarget& target) const;
  [[nodiscard]] std::optional<SidebarTarget> selected() const;
  void tellSelected();

  SidebarModel& places_;
  SidebarShape shape_ = SidebarShape::full;
  QPersistentModelIndex hovered_;
  QPersistentModelIndex dropTarget_;  ///< while apps are dragged over it
  SidebarTarget here_;                ///< where the user is
  bool isTold_ = true;                ///< whether the user selects
  bool isPointed_ = false;            ///< with the pointer
  QTimer rest_;                       ///< after the last key
};

}  // namespace quillet
