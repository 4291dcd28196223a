// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_list.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "desktop/lists/row_pictures.h"
#include "desktop/sections/my_apps/upkeep_card.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kRest = 80ms;
constexpr int kScrollStep = 16;

}  // namespace

UpkeepList::UpkeepList(UpkeepCards& cards, RowPictures& pictures, QWidget* parent)
    : QListView(parent), cards_(cards) {
  setAccessibleName(upkeepTitle(cards.column()));
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Cards keep their width whether there is anything to scroll or not; an idle bar is not painted.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  verticalScrollBar()->setSingleStep(kScrollStep);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setDragDropMode(DragOnly);
  // A card that offers something is higher than the others.
  setUniformItemSizes(!offersReplacement(cards.column()));
  viewport()->setAttribute(Qt::WA_Hover);
  setItemDelegate(new UpkeepCard(*this, pictures));
  setModel(&cards);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &UpkeepList::rested);
  connect(this, &QListView::activated, this,
          [this](const QModelIndex& index) { Q_EMIT opened(cards_.keyAt(index.row())); });
}

void UpkeepList::chooseCard(int card) {
  const QScopedValueRollback quiet(isTold_, false);
  selectionModel()->setCurrentIndex(cards_.index(card, 0), QItemSelectionModel::ClearAndSelect);
  if (card >= 0) scrollTo(cards_.index(card, 0), EnsureVisible);
}

std::optional<int> UpkeepList::chosenHeight() const {
  if (!selectionModel()->hasSelection()) return {};
  return visualRect(currentIndex()).center().y();
}

void UpkeepList::chooseNearest(int height) {
  if (cards_.rowCount() == 0) return;
  const QModelIndex at = indexAt({viewport()->width() / 2, height});
  const QModelIndex card =
      at.isValid() ? at : cards_.index(height < 0 ? 0 : cards_.rowCount() - 1, 0);
  selectionModel()->setCurrentIndex(card, QItemSelectionModel::ClearAndSelect);
}

void UpkeepList::take(std::vector<RowKey> keys) {
  const QScopedValueRollback quiet(isTold_, false);
  const bool isChosen = selectionModel()->hasSelection();
  const std::optional<RowKey> key =
      isChosen ? std::optional(cards_.keyAt(currentIndex().row())) : std::nullopt;
  const int scroll = verticalScrollBar()->value();
  cards_.setKeys(std::move(keys));
  const int card = key ? cards_.find(*key) : -1;
  if (card >= 0)
    selectionModel()->setCurrentIndex(cards_.index(card, 0), QItemSelectionModel::ClearAndSelect);
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(scroll);
  rest_.start();
}

std::vector<ImageKey> UpkeepList::pictures() const {
  std::vector<ImageKey> keys;
  if (!isVisible() || cards_.rowCount() == 0) return keys;
  const int middle = viewport()->width() / 2;
  const int first = std::max(0, indexAt({middle, 0}).row());
  const int last = indexAt({middle, viewport()->height() - 1}).row();
  for (int card = first; card <= (last < 0 ? cards_.rowCount() - 1 : last); ++card) {
    const AppRow* row = cards_.at(card);
    if (row == nullptr) continue;
    std::ranges::move(RowPictures::keysOf(*row, kCardArtwork, devicePixelRatioF()),
                      std::back_inserter(keys));
  }
  return keys;
}

bool UpkeepList::isReplaced(const QModelIndex& index) const {
  if (!offersReplacement(cards_.column()) || !selectionModel()->isSelected(index)) return false;
  const AppRow* row = cards_.at(index.row());
  return row != nullptr && isReplaceable(*row);
}

void UpkeepList::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = event->modifiers() == Qt::NoModifier;
  const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
  if (!isPlain || !isSideways) return QListView::keyPressEvent(event);
  const bool isForward = (event->key() == Qt::Key_Right) != isRightToLeft();
  Q_EMIT stepped(isForward ? 1 : -1);
}

void UpkeepList::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  // Beside the cards is nothing to choose: what is chosen stays.
  if (!index.isValid()) return;
  const bool isOffer = event->button() == Qt::LeftButton && isReplaced(index) &&
                       UpkeepCard::offerIn(visualRect(index), *this).contains(event->pos());
  if (isOffer) return Q_EMIT replacementAsked(cards_.keyAt(index.row()));
  QListView::mousePressEvent(event);
}

void UpkeepList::contextMenuEvent(QContextMenuEvent* event) {
  const bool isPointed = event->reason() == QContextMenuEvent::Mouse;
  const QModelIndex index = isPointed ? indexAt(event->pos()) : currentIndex();
  if (!index.isValid()) return;
  Q_EMIT menuAsked(isPointed ? event->globalPos()
                             : viewport()->mapToGlobal(visualRect(index).center()));
}

void UpkeepList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  if (!uniformItemSizes()) scheduleDelayedItemsLayout();
  if (isTold_ && current.isValid()) Q_EMIT chosen(cards_.keyAt(current.row()));
}

/// Who comes by the tab key chooses what they come to.
void UpkeepList::focusInEvent(QFocusEvent* event) {
  const bool hasChoice = selectionModel()->hasSelection();
  if (!hasChoice && cards_.rowCount() > 0 && event->reason() != Qt::MouseFocusReason) {
    chooseNearest(0);
  } else if (!hasChoice) {
    // What has the focus without a current card would make the first one current, and not choose
    // it.
    const QScopedValueRollback quiet(isTold_, false);
    QListView::focusInEvent(event);
    return selectionModel()->clear();
  }
  QListView::focusInEvent(event);
}

void UpkeepList::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  rest_.start();
}

void UpkeepList::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  rest_.start();
}

void UpkeepList::showEvent(QShowEvent* event) {
  QListView::showEvent(event);
  rest_.start();
}

}  // namespace quillet
