// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/app_list_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/lists/app_row_delegate.h"
#include "desktop/lists/note_editor.h"
#include "desktop/lists/row_places.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/app_drag.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kRest = 80ms;
constexpr int kStepsOfWheel = 3;  // that Qt makes of a notch

/// A text that hangs on the pointer.
QPixmap dragPicture(const QWidget& view, const QString& text) {
  constexpr double kMostText = 240;
  constexpr int kPadding = 12;
  constexpr int kHeight = 28;
  Look& look = lookOf(view);
  const QString shown = look.text.elided(text, kControlType, kMostText);
  const QSizeF size(look.text.width(shown, kControlType) + 2 * kPadding, kHeight * look.growth());
  QPixmap picture((size * view.devicePixelRatioF()).toSize());
  picture.setDevicePixelRatio(view.devicePixelRatioF());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box(QPointF(), size);
  paintBox(painter, box, 8, look[Token::raised], {look[Token::edge]});
  look.text.draw(painter, {box, TextAnchor::centre}, shown, kControlType, look[Token::text]);
  return picture;
}

}  // namespace

AppListView::AppListView(const QString& name, RowFilterModel& rows, ImageStore& images)
    : rows_(rows), delegate_(new AppRowDelegate(*this, rows.table().layout, images)) {
  const RowLayout& layout = rows.table().layout;
  setAccessibleName(name);
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(!layout.hasDays && !layout.hasNotes);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Rows keep their width whether there is anything to scroll or not; an idle bar is not painted.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  verticalScrollBar()->setSingleStep(layout.height / kStepsOfWheel);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setDragDropMode(DragOnly);
  viewport()->setAttribute(Qt::WA_Hover);
  setItemDelegate(delegate_);
  setModel(&rows);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &AppListView::rested);
  connect(this, &QListView::activated, this,
          [this](const QModelIndex& index) { Q_EMIT opened(index.data(KeyRole).value<RowKey>()); });
  connect(&rows, &QAbstractItemModel::rowsAboutToBeInserted, this, &AppListView::rememberSight);
  connect(&rows, &QAbstractItemModel::layoutAboutToBeChanged, this, &AppListView::rememberSight);
  connect(&images, &ImageStore::arrived, this, &AppListView::repaintPicture);
}

std::optional<RowKey> AppListView::currentKey() const {
  if (!currentIndex().isValid()) return {};
  return rows_.at(currentIndex().row()).key;
}

std::vector<RowKey> AppListView::chosenKeys() const {
  QModelIndexList chosen = selectionModel()->selectedIndexes();
  std::ranges::sort(chosen, {}, &QModelIndex::row);
  std::vector<RowKey> keys;
  for (const QModelIndex& index : chosen) keys.push_back(rows_.at(index.row()).key);
  return keys;
}

void AppListView::chooseRow(int row) {
  // Who chooses says whether the row is to be seen.
  setAutoScroll(false);
  selectionModel()->setCurrentIndex(rows_.index(row, 0), QItemSelectionModel::ClearAndSelect);
  setAutoScroll(true);
}

void AppListView::bringIntoSight(int row) {
  executeDelayedItemsLayout();
  scrollTo(rows_.index(row, 0), EnsureVisible);
}

int AppListView::rowAt(int y) const {
  return QListView::indexAt(QPoint(viewport()->width() / 2, y)).row();
}

/// From the beginning of the list.
int AppListView::topOf(int row) const {
  return visualRect(rows_.index(row, 0)).top() + verticalScrollBar()->value();
}

RowRange AppListView::seen() const {
  const int count = rows_.rowCount();
  if (count == 0) return {};
  const int last = rowAt(viewport()->height() - 1);
  return {std::max(0, rowAt(0)), last < 0 ? count - 1 : last};
}

RowAnchor AppListView::anchor() const {
  const int first = seen().first;
  if (first < 0) return {};
  return {rows_.at(first).key, verticalScrollBar()->value() - topOf(first)};
}

void AppListView::setAnchor(const RowAnchor& anchor) {
  forgetSight();
  executeDelayedItemsLayout();
  const int row = rows_.find(anchor.first);
  if (row >= 0) verticalScrollBar()->setValue(topOf(row) + anchor.offset);
}

void AppListView::scrollToCurrent() {
  forgetSight();
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(0);
  if (currentIndex().isValid()) scrollTo(currentIndex(), EnsureVisible);
}

void AppListView::settle() {
  const bool isLost = std::exchange(lostCurrent_, false) && !selectionModel()->hasSelection();
  const QModelIndex substitute = substitute_;
  substitute_ = QModelIndex();
  const int last = rows_.rowCount() - 1;
  if (last < 0) return;
  if (isLost) chooseRow(substitute.isValid() ? substitute.row() : last);
  if (!currentIndex().isValid()) chooseRow(0);
}

void AppListView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
  rememberSight();
  const auto goes = [&](int row) { return row >= start && row <= end; };
  const int current = lostCurrent_ ? substitute_.row() : currentIndex().row();
  if (goes(current)) {
    lostCurrent_ = true;
    substitute_ = rows_.index(end + 1, 0);
  }
  QListView::rowsAboutToBeRemoved(parent, start, end);
}

/// Before a change; of several the sight before the first is kept.
void AppListView::rememberSight() {
  if (std::exchange(isChanging_, true)) return;
  if (verticalScrollBar()->value() == 0) return;  // who looks at the beginning sees what is new
  executeDelayedItemsLayout();
  isChanging_ = true;
  const RowRange range = seen();
  for (int row = range.first; row >= 0 && row <= range.last; ++row)
    sight_.push_back({rows_.at(row).key, visualRect(rows_.index(row, 0)).top()});
}

void AppListView::forgetSight() {
  isChanging_ = false;
  sight_.clear();
}

/// Leaves the first of the rows that were seen where it was. One that went elsewhere on its own is
/// not followed: at least two must agree.
void AppListView::restoreSight() {
  std::vector<int> scrolls;
  for (const Sighting& seen : std::exchange(sight_, {})) {
    const int row = rows_.find(seen.key);
    if (row >= 0) scrolls.push_back(topOf(row) - seen.top);
  }
  if (scrolls.empty()) return;
  const auto isShared = [&](int scroll) { return std::ranges::count(scrolls, scroll) > 1; };
  const auto shared = std::ranges::find_if(scrolls, isShared);
  verticalScrollBar()->setValue(shared == scrolls.end() ? scrolls.front() : *shared);
}

void AppListView::doItemsLayout() {
  QListView::doItemsLayout();
  isChanging_ = false;
  restoreSight();
  rest_.start();
}

void AppListView::reset() {
  forgetSight();
  lostCurrent_ = false;
  QListView::reset();
}

bool AppListView::isLit(int row) const {
  return hovered_.row() == row || selectionModel()->isRowSelected(row, {});
}

bool AppListView::hasHairlineBelow(int row) const {
  const int next = row + 1;
  if (next >= rows_.rowCount() || isLit(row) || isLit(next)) return false;
  return !rows_.index(next, 0).data(HeadingRole).isValid();
}

QModelIndex AppListView::indexAt(const QPoint& point) const {
  const QModelIndex index = QListView::indexAt(point);
  if (!index.isValid() || !index.data(HeadingRole).isValid()) return index;
  return point.y() < visualRect(index).top() + headingHeight(lookOf(*this)) ? QModelIndex() : index;
}

bool AppListView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
      setHovered(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint()));
      break;
    case QEvent::HoverLeave:
    case QEvent::Leave: setHovered({}); break;
    default: break;
  }
  return QListView::viewportEvent(event);
}

void AppListView::setHovered(const QModelIndex& index) {
  if (hovered_ == index) return;
  repaintWithNeighbour(hovered_);
  hovered_ = index;
  repaintWithNeighbour(hovered_);
}

/// The hairline above a row belongs to the one before.
void AppListView::repaintWithNeighbour(const QModelIndex& index) {
  if (!index.isValid()) return;
  viewport()->update(visualRect(index).adjusted(0, -1, 0, 0));
}

void AppListView::editNote(const RowKey& row, const QString& note) {
  const int place = rows_.find(row);
  if (place < 0) return;
  endNote();
  noted_ = rows_.index(place, 0);
  note_ = new NoteEditor(note, rows_.at(place).name, viewport());
  connect(note_, &NoteEditor::kept, this, [this, row](const QString& written) {
    endNote();
    Q_EMIT noteWritten(row, written);
  });
  connect(note_, &NoteEditor::left, this, &AppListView::endNote);
  setIndexWidget(noted_, note_);
  scheduleDelayedItemsLayout();
  bringIntoSight(place);
  note_->setFocus(Qt::OtherFocusReason);
}

bool AppListView::isNoteEdited(const QModelIndex& index) const {
  return !note_.isNull() && noted_ == index;
}

void AppListView::endNote() {
  if (note_.isNull()) return;
  const bool hadFocus = note_->isAncestorOf(QApplication::focusWidget());
  note_ = nullptr;
  setIndexWidget(noted_, nullptr);
  noted_ = QModelIndex();
  if (hadFocus) setFocus(Qt::OtherFocusReason);
  scheduleDelayedItemsLayout();
}

void AppListView::repaintPicture(const ImageKey& key) {
  if (!isVisible()) return;
  const RowRange range = seen();
  for (int row = range.first; row >= 0 && row <= range.last; ++row) {
    const AppRow& shown = rows_.at(row);
    if (shown.artwork == key.address ||
        std::ranges::find(shown.pictures, key.address) != shown.pictures.end())
      update(rows_.index(row, 0));
  }
}

/// A click on the mark chooses nothing.
bool AppListView::takeWatchClick(const QMouseEvent& event) {
  const QModelIndex index = indexAt(event.pos());
  if (event.button() != Qt::LeftButton || !index.isValid()) return false;
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(index);
  if (!delegate_->watchMark(option, index).contains(event.pos())) return false;
  Q_EMIT watchClicked(rows_.at(index.row()).key);
  return true;
}

void AppListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!takeWatchClick(*event)) QListView::mouseDoubleClickEvent(event);
}

void AppListView::mousePressEvent(QMouseEvent* event) {
  if (takeWatchClick(*event)) return;
  // Beside the rows is nothing to choose: what is chosen stays.
  if (indexAt(event->pos()).isValid()) QListView::mousePressEvent(event);
}

void AppListView::contextMenuEvent(QContextMenuEvent* event) {
  QModelIndex index = indexAt(event->pos());
  if (event->reason() == QContextMenuEvent::Keyboard) index = currentIndex();
  if (!index.isValid()) return;
  const bool isPointed = event->reason() == QContextMenuEvent::Mouse;
  Q_EMIT menuAsked(isPointed ? event->globalPos()
                             : viewport()->mapToGlobal(visualRect(index).center()));
}

/// The names of rows, not the rows themselves, which would hide where they can be dropped.
void AppListView::startDrag(Qt::DropActions actions) {
  const std::vector<RowKey> keys = chosenKeys();
  QMimeData* data = rows_.mimeData(selectionModel()->selectedIndexes());
  if (data == nullptr) return;
  const QString text = keys.size() == 1
                           ? rows_.at(rows_.find(keys.front())).name
                           : tr("%n apps", nullptr, static_cast<int>(appsIn(*data).size()));
  auto* drag = new QDrag(this);
  drag->setMimeData(data);
  drag->setPixmap(dragPicture(*this, text));
  drag->exec(actions, Qt::CopyAction);
}

void AppListView::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  rest_.start();
}

void AppListView::showEvent(QShowEvent* event) {
  QListView::showEvent(event);
  rest_.start();
}

/// What has the focus without a current row would make the first one current, and not choose it.
void AppListView::focusInEvent(QFocusEvent* event) {
  if (!currentIndex().isValid() && rows_.rowCount() > 0) chooseRow(0);
  QListView::focusInEvent(event);
}

void AppListView::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  if (viewport()->underMouse()) setHovered(indexAt(viewport()->mapFromGlobal(QCursor::pos())));
  rest_.start();
}

void AppListView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  for (const QItemSelection* each : {&selected, &deselected}) {
    for (const QItemSelectionRange& range : *each) repaintWithNeighbour(range.topLeft());
  }
  Q_EMIT chosenChanged();
}

void AppListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  Q_EMIT chosenChanged();
}

}  // namespace quillet
