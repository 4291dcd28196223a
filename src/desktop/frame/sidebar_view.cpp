// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar_view.h"

#include <QHoverEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include "desktop/frame/sidebar_row.h"
#include "desktop/look/look.h"

namespace quillet {

SidebarView::SidebarView(SidebarModel& places) : places_(places) {
  setModel(&places);
  setItemDelegate(new SidebarDelegate(this));
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setExpandsOnDoubleClick(false);
  setIndentation(0);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  viewport()->setAutoFillBackground(false);
  setAccessibleName(tr("Places"));
  connect(&places, &QAbstractItemModel::rowsInserted, this, &SidebarView::showRows);
  showRows();
}

void SidebarView::setShape(SidebarShape shape) {
  if (shape_ == shape) return;
  shape_ = shape;
  showRows();
  scheduleDelayedItemsLayout();
}

void SidebarView::select(SectionId section, RowId collection) {
  const QScopedValueRollback quiet(isTold_, false);
  const QModelIndex index = places_.find(section, shape_ == SidebarShape::rail ? 0 : collection);
  if (index.isValid() && !selectionModel()->isSelected(index)) setCurrentIndex(index);
}

/// All groups are open; the rail has no room for collections.
void SidebarView::showRows() {
  const QModelIndex collections = places_.find(SectionId::collections);
  for (int i = 0; collections.isValid() && i < places_.rowCount(collections); ++i)
    setRowHidden(i, collections, shape_ == SidebarShape::rail);
  expandAll();
}

void SidebarView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  SidebarRow row;
  row.shape = shape_;
  row.isSelected = selectionModel()->isSelected(index);
  row.isHovered = hovered_ == index;
  row.hasRing =
      row.isSelected && hasFocus() && option.state.testFlag(QStyle::State_KeyboardFocusChange);
  QRect rect = option.rect;
  rect.setLeft(0);
  rect.setWidth(viewport()->width());
  paintSidebarRow(*painter, lookOf(*this), rect, index, row);
}

bool SidebarView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
      setHovered(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint()));
      break;
    case QEvent::HoverLeave: setHovered({}); break;
    default: break;
  }
  return QTreeView::viewportEvent(event);
}

void SidebarView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  if (!isTold_ || selected.isEmpty()) return;
  const QModelIndex index = selected.indexes().front();
  if (!index.data(SectionRole).isValid()) return;
  Q_EMIT wanted(static_cast<SectionId>(index.data(SectionRole).toInt()),
                index.data(CollectionRole).toLongLong());
}

void SidebarView::setHovered(const QModelIndex& index) {
  if (hovered_ == index) return;
  hovered_ = index;
  viewport()->update();
}

}  // namespace quillet
