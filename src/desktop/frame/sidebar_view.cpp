// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar_view.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHoverEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include "desktop/frame/sidebar_row.h"
#include "desktop/look/look.h"
#include "desktop/models/app_drag.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kRest = 300ms;

}  // namespace

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
  setDragDropMode(DropOnly);
  setDropIndicatorShown(false);
  setAccessibleName(tr("Places"));
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &SidebarView::tellSelected);
  connect(&places, &QAbstractItemModel::rowsInserted, this, &SidebarView::showRows);
  showRows();
}

void SidebarView::setShape(SidebarShape shape) {
  if (shape_ == shape) return;
  shape_ = shape;
  showRows();
  scheduleDelayedItemsLayout();
}

void SidebarView::select(const SidebarTarget& target) {
  if (rest_.isActive() && target == here_) return;  // the user is about to go elsewhere
  rest_.stop();
  here_ = target;
  const QScopedValueRollback quiet(isTold_, false);
  const QModelIndex index =
      places_.find(shape_ == SidebarShape::rail ? SidebarTarget{target.section} : target);
  if (index.isValid() && !selectionModel()->isSelected(index)) setCurrentIndex(index);
}

/// All groups are open; the rail has no room for what has no icon of its own.
void SidebarView::showRows() {
  const bool isRail = shape_ == SidebarShape::rail;
  const QModelIndex searches = places_.savedSearches();
  for (const QModelIndex& parent : {places_.find(SectionId::collections), searches}) {
    for (int i = 0; parent.isValid() && i < places_.rowCount(parent); ++i)
      setRowHidden(i, parent, isRail);
  }
  if (searches.isValid()) setRowHidden(searches.row(), {}, isRail);
  expandAll();
}

void SidebarView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  SidebarRow row;
  row.shape = shape_;
  row.isSelected = selectionModel()->isSelected(index);
  row.isHovered = hovered_ == index;
  row.isTarget = dropTarget_.isValid() && dropTarget_ == index;
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

/// The pointer's other buttons choose nothing: a menu is about what it is asked for.
void SidebarView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->accept();
  const QScopedValueRollback pointed(isPointed_, true);
  QTreeView::mousePressEvent(event);
}

void SidebarView::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || !selected()) return QTreeView::keyPressEvent(event);
  tellSelected();
  Q_EMIT entered();
}

void SidebarView::contextMenuEvent(QContextMenuEvent* event) {
  const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
  const std::optional<SidebarTarget> target = SidebarModel::targetOf(index);
  if (!target) return;
  const QPoint at =
      isKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
  if (target->savedSearch != 0) Q_EMIT menuAsked(target->savedSearch, at);
  if (target->collection != 0) Q_EMIT collectionMenuAsked(target->collection, at);
}

void SidebarView::dragEnterEvent(QDragEnterEvent* event) {
  event->setAccepted(!appsIn(*event->mimeData()).empty());
}

void SidebarView::dragMoveEvent(QDragMoveEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  const std::optional<SidebarTarget> target = SidebarModel::targetOf(index);
  const bool takes = target && takesApps(*target) && !appsIn(*event->mimeData()).empty();
  setDropTarget(takes ? index : QModelIndex());
  if (takes) event->setDropAction(dropActionOf(*event, *target));
  event->setAccepted(takes);
}

void SidebarView::dragLeaveEvent(QDragLeaveEvent* /*event*/) { setDropTarget({}); }

void SidebarView::dropEvent(QDropEvent* event) {
  setDropTarget({});
  const std::optional<SidebarTarget> target =
      SidebarModel::targetOf(indexAt(event->position().toPoint()));
  const std::vector<NamedKey> apps = appsIn(*event->mimeData());
  if (!target || !takesApps(*target) || apps.empty()) return event->ignore();
  const Qt::DropAction how = dropActionOf(*event, *target);
  event->setDropAction(how);
  event->accept();
  Q_EMIT dropped(*target, apps, how);
}

/// Not where they are dragged from.
bool SidebarView::takesApps(const SidebarTarget& target) const {
  if (target == here_) return false;
  return target.collection != 0 || target == SidebarTarget{SectionId::myApps} ||
         target == SidebarTarget{SectionId::watchlist} ||
         target == SidebarTarget{SectionId::compare};
}

Qt::DropAction SidebarView::dropActionOf(const QDropEvent& event,
                                         const SidebarTarget& target) const {
  const bool moves = event.modifiers().testFlag(Qt::ShiftModifier) && target.collection != 0 &&
                     here_.collection != 0;
  return moves ? Qt::MoveAction : Qt::CopyAction;
}

void SidebarView::setDropTarget(const QModelIndex& index) {
  if (dropTarget_ == index) return;
  dropTarget_ = index;
  viewport()->update();
}

/// What is selected in the place of a row that goes, the user did not select.
void SidebarView::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
  const QScopedValueRollback quiet(isTold_, false);
  QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

void SidebarView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  if (!isTold_ || selected.isEmpty()) return;
  const std::optional<SidebarTarget> target = this->selected();
  if (target && target->savedSearch != 0 && !isPointed_) {
    rest_.start();
  } else {
    tellSelected();
  }
}

std::optional<SidebarTarget> SidebarView::selected() const {
  const QModelIndexList indexes = selectionModel()->selectedIndexes();
  return indexes.isEmpty() ? std::nullopt : SidebarModel::targetOf(indexes.front());
}

void SidebarView::tellSelected() {
  rest_.stop();
  if (const std::optional<SidebarTarget> target = selected()) Q_EMIT wanted(*target);
}

void SidebarView::setHovered(const QModelIndex& index) {
  if (hovered_ == index) return;
  hovered_ = index;
  viewport()->update();
}

}  // namespace quillet
