// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_board.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/sections/my_apps/upkeep_share.h"

namespace quillet {

namespace {

constexpr int kInset = 24;
constexpr int kOverhang = 8;  // of cards beside their columns' titles
constexpr int kTop = 12;
constexpr int kBetween = 20 - 2 * kOverhang;

}  // namespace

UpkeepBoard::UpkeepBoard(const RowFilterModel& rows, ImageStore& images,
                         std::function<Instant()> now)
    : rows_(rows),
      images_(images),
      now_(std::move(now)),
      pictures_(images),
      share_(new UpkeepShare(this)),
      across_(new QScrollArea(this)) {
  setAccessibleName(tr("Upkeep"));
  setFocusPolicy(Qt::ClickFocus);
  auto* inner = new QWidget;
  auto* columns = new QHBoxLayout(inner);
  columns->setContentsMargins(kInset - kOverhang, 0, kInset - kOverhang, 0);
  columns->setSpacing(kBetween);
  for (std::size_t i = 0; i < kUpkeepColumns; ++i) {
    piles_.at(i) = new UpkeepPile(rows, static_cast<UpkeepColumn>(i), pictures_, inner);
    columns->addWidget(piles_.at(i), 1);
    listen(*piles_.at(i));
  }
  across_->setFrameShape(QFrame::NoFrame);
  across_->setWidgetResizable(true);
  across_->setFocusPolicy(Qt::NoFocus);
  across_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  across_->setWidget(inner);
  auto* margins = new QHBoxLayout;
  margins->setContentsMargins(kInset, kTop, kInset, 0);
  margins->addWidget(share_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(kOverhang);
  column->addLayout(margins);
  column->addWidget(across_, 1);
  for (QTimer* timer : {&fillTimer_, &seenTimer_}) {
    timer->setSingleShot(true);
    timer->setInterval(0);
  }
  connect(&fillTimer_, &QTimer::timeout, this, &UpkeepBoard::fill);
  connect(&seenTimer_, &QTimer::timeout, this, &UpkeepBoard::askForSeen);
  const auto later = [this] {
    if (isVisible()) fillTimer_.start();
  };
  connect(&rows, &QAbstractItemModel::rowsInserted, this, later);
  connect(&rows, &QAbstractItemModel::rowsRemoved, this, later);
  connect(&rows, &QAbstractItemModel::dataChanged, this, later);
  connect(&rows, &QAbstractItemModel::layoutChanged, this, later);
  connect(&rows, &QAbstractItemModel::modelReset, this, later);
  connect(&images, &ImageStore::arrived, this, [this] {
    for (UpkeepPile* pile : piles_) pile->list().viewport()->update();
  });
}

// Before the pictures, which they show.
UpkeepBoard::~UpkeepBoard() { delete across_; }

void UpkeepBoard::listen(UpkeepPile& pile) {
  UpkeepList& list = pile.list();
  connect(&list, &UpkeepList::chosen, this, [this, from = &list](const RowKey& row) {
    chosen_ = row;
    for (UpkeepPile* each : piles_) {
      if (&each->list() != from) each->list().chooseCard(-1);
    }
    across_->ensureWidgetVisible(from, 0, 0);
    Q_EMIT chosen(row);
  });
  connect(&list, &UpkeepList::opened, this, &UpkeepBoard::opened);
  connect(&list, &UpkeepList::menuAsked, this, &UpkeepBoard::menuAsked);
  connect(&list, &UpkeepList::replacementAsked, this, &UpkeepBoard::replacementAsked);
  connect(&list, &UpkeepList::rested, &seenTimer_, qOverload<>(&QTimer::start));
  connect(&list, &UpkeepList::stepped, this, [this, &pile](int by) { step(pile, by); });
}

void UpkeepBoard::choose(const std::optional<RowKey>& row) {
  chosen_ = row;
  if (isVisible()) showChosen();
}

void UpkeepBoard::showChosen() {
  UpkeepPile* where = nullptr;
  int card = -1;
  for (UpkeepPile* pile : piles_) {
    const QModelIndex current = pile->list().currentIndex();
    const bool isHere = chosen_ && current.isValid() &&
                        pile->list().selectionModel()->isSelected(current) &&
                        pile->cards().keyAt(current.row()) == *chosen_;
    if (isHere) return;
  }
  for (UpkeepPile* pile : piles_) {
    const int found = chosen_ && where == nullptr ? pile->cards().find(*chosen_) : -1;
    if (found >= 0) {
      where = pile;
      card = found;
    }
  }
  for (UpkeepPile* pile : piles_) pile->list().chooseCard(pile == where ? card : -1);
  if (where != nullptr) across_->ensureWidgetVisible(&where->list(), 0, 0);
}

void UpkeepBoard::fill() {
  auto keys = cardsOf(rows_);
  UpkeepTally tally;
  for (int row = 0; row < rows_.rowCount(); ++row) count(tally, rows_.at(row));
  share_->show(tally, now_());
  for (std::size_t i = 0; i < kUpkeepColumns; ++i) piles_.at(i)->take(std::move(keys.at(i)));
  showChosen();
}

/// To the next column that has cards, at the same height.
void UpkeepBoard::step(const UpkeepPile& from, int by) {
  auto place = std::ranges::find(piles_, &from) - piles_.begin();
  const int height = piles_.at(static_cast<std::size_t>(place))->list().chosenHeight().value_or(0);
  for (place += by; place >= 0 && place < std::ssize(piles_); place += by) {
    UpkeepPile& pile = *piles_.at(static_cast<std::size_t>(place));
    if (pile.cards().rowCount() == 0) continue;
    pile.list().chooseNearest(height);
    pile.list().setFocus(Qt::TabFocusReason);
    return;
  }
}

/// Where the chosen card is, or else the first one with cards.
UpkeepPile& UpkeepBoard::firstPile() {
  UpkeepPile* first = nullptr;
  for (UpkeepPile* pile : piles_) {
    if (pile->list().selectionModel()->hasSelection()) return *pile;
    if (first == nullptr && pile->cards().rowCount() > 0) first = pile;
  }
  return first == nullptr ? *piles_.front() : *first;
}

void UpkeepBoard::askForSeen() {
  if (!isVisible()) return;
  std::vector<ImageKey> keys;
  for (UpkeepPile* pile : piles_)
    std::ranges::move(pile->list().pictures(), std::back_inserter(keys));
  images_.want(this, std::move(keys));
}

void UpkeepBoard::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  fill();
}

void UpkeepBoard::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  images_.want(this, {});
}

void UpkeepBoard::focusInEvent(QFocusEvent* event) { firstPile().list().setFocus(event->reason()); }

}  // namespace quillet
