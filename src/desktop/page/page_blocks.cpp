// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_blocks.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/page/page_layout.h"
#include "desktop/page/sticky_header.h"
#include "system/settings_keys.h"

namespace quillet {

PageBlocks::PageBlocks(const PageWorld& world, QScrollArea& view, PageLayout& layout)
    : world_(world), view_(view), layout_(layout), page_(layout.parentWidget()) {
  idle_.setSingleShot(true);
  layout_.parentWidget()->installEventFilter(this);
  connect(&idle_, &QTimer::timeout, this, &PageBlocks::fillNext);
  connect(&world.view.settings, &LiveSettings::changed, this,
          [this](const std::set<std::string>& keys) {
            if (keys.contains(std::string(kDetailSectionLayout.key))) arrange();
          });
  arrange();
}

/// All are made anew: then the keyboard goes through them in their order, too.
void PageBlocks::arrange() {
  const int scrolled = view_.verticalScrollBar()->value();
  held_ = {};
  for (const Slot& slot : std::exchange(slots_, {})) delete slot.block;
  for (const BlockChoice& choice : blockChoices(world_.view.settings)) {
    const BlockRow* row = findBlock(choice.id);
    if (choice.isShown && row != nullptr) slots_.push_back({row});
  }
  if (!facts_) return;
  fillSeen();
  if (scrolled == 0) return;
  finish();
  view_.verticalScrollBar()->setValue(scrolled);
}

void PageBlocks::show(const PageFacts& facts) {
  const bool isOther = !facts_ || facts_->app != facts.app;
  facts_ = facts;
  for (Slot& slot : slots_) {
    slot.isFilled = false;
    if (!isOther) continue;
    slot.hasAsked = false;
    slot.freshness = Freshness::known;
    if (slot.block != nullptr) slot.block->hide();
  }
  fillSeen();
}

void PageBlocks::clear() {
  facts_.reset();
  for (const Slot& slot : slots_)
    if (slot.block != nullptr) slot.block->hide();
  idle_.stop();
}

PageBlocks::Slot* PageBlocks::nextUnfilled() {
  const auto next = std::ranges::find(slots_, false, &Slot::isFilled);
  return next == slots_.end() ? nullptr : &*next;
}

void PageBlocks::look() {
  for (const Slot& slot : slots_) setMargins(slot);
  if (isFilling_) return;
  held_ = anchor();
  if (facts_) fillSeen();
}

/// From above, so that none pushes away what is seen; the others each in an event of its own, so
/// that none is long.
void PageBlocks::fillSeen() {
  if (nextUnfilled() != nullptr) {
    const Anchor kept = anchor();
    for (Slot& slot : slots_) {
      if (layout_.topOf(slot.block) >= endOfView()) break;
      if (!slot.isFilled && standOf(slot) == Stand::near) fill(slot);
    }
    bringBack(kept);
    if (nextUnfilled() != nullptr) idle_.start(0);
  }
  letNearAsk();
}

void PageBlocks::fillNext() {
  Slot* next = nextUnfilled();
  if (!facts_ || next == nullptr) return;
  const Anchor kept = anchor();
  fill(*next);
  bringBack(kept);
  if (nextUnfilled() != nullptr) idle_.start(0);
  letNearAsk();
}

void PageBlocks::finish() {
  while (facts_ && nextUnfilled() != nullptr) fillNext();
  idle_.stop();
}

bool PageBlocks::has(std::string_view id) const {
  return std::ranges::any_of(slots_, [&](const Slot& slot) { return slot.row->id == id; });
}

bool PageBlocks::isActedOn(const QObject* block) const {
  const auto slot = std::ranges::find(slots_, block, &Slot::block);
  return slot != slots_.end() &&
         (slot->row->id == kStorefrontsBlock || slot->row->id == kRanksBlock);
}

bool PageBlocks::shows(std::string_view id) const {
  return std::ranges::any_of(slots_, [&](const Slot& slot) {
    return slot.row->id == id && slot.block != nullptr && !slot.block->isHidden();
  });
}

void PageBlocks::goTo(std::string_view id) {
  if (!shows(id)) return;
  finish();
  const auto slot = std::ranges::find(slots_, id, [](const Slot& each) { return each.row->id; });
  if (slot->block->isHidden()) return;
  view_.verticalScrollBar()->setValue(slot->block->y() - StickyHeader::kHeight);
  look();
  slot->block->act();
}

void PageBlocks::fill(Slot& slot) {
  const bool wasFilling = std::exchange(isFilling_, true);
  if (slot.block == nullptr) make(slot);
  slot.isFilled = true;
  slot.block->setVisible(slot.block->fill(*facts_));
  isFilling_ = wasFilling;
}

void PageBlocks::make(Slot& slot) {
  slot.block = slot.row->make(titleOf(*slot.row), world_);
  slot.block->setEnabled(false);  // until it is shown
  slot.block->installEventFilter(this);
  slot.block->setWide(slot.row->isWide);
  layout_.addWidget(slot.block);
  setMargins(slot);
}

/// A wide block reaches to the edge of the view; its contents do only where they want to.
void PageBlocks::setMargins(const Slot& slot) const {
  if (slot.block == nullptr || !slot.row->isWide) return;
  const bool isMirrored = view_.layoutDirection() == Qt::RightToLeft;
  const int inset = layout_.inset();
  slot.block->setContentsMargins(isMirrored ? inset : 0, 0, isMirrored ? 0 : inset, 0);
}

/// A block that has its answer shows itself: of an app that is shown no longer, perhaps.
bool PageBlocks::eventFilter(QObject* watched, QEvent* event) {
  // A block that shows itself has been placed by now, and moved those below it.
  if (watched == page_ && event->type() == QEvent::LayoutRequest && !isFilling_) bringBack(held_);
  const bool isTurned =
      event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
  if (isTurned && isActedOn(watched)) Q_EMIT shownChanged();
  if (event->type() == QEvent::ShowToParent && !isFilling_) {
    const auto slot = std::ranges::find(slots_, watched, &Slot::block);
    if (slot != slots_.end() && !slot->isFilled && facts_) fill(*slot);
  }
  return QObject::eventFilter(watched, event);
}

int PageBlocks::endOfView() const {
  return view_.verticalScrollBar()->value() + view_.viewport()->height();
}

PageBlocks::Stand PageBlocks::standOf(const Slot& slot) const {
  const int height = view_.viewport()->height();
  const int seen = view_.verticalScrollBar()->value();
  const int top = layout_.topOf(slot.block);
  const bool isSeen = slot.block != nullptr && !slot.block->isHidden();
  const int bottom = top + (isSeen ? slot.block->height() : 0);
  if (top >= endOfView() + height) return Stand::below;
  return bottom <= seen - height ? Stand::above : Stand::near;
}

void PageBlocks::setMayAsk(bool may) {
  mayAsk_ = may;
  letNearAsk();
}

void PageBlocks::askAgain() {
  for (Slot& slot : slots_) {
    slot.hasAsked = false;
    slot.freshness = Freshness::anew;
  }
  letNearAsk();
}

void PageBlocks::letNearAsk() {
  if (!mayAsk_ || !facts_ || !view_.isVisible()) return;
  for (Slot& slot : slots_) {
    // Where those behind it will stand is not known yet.
    if (!slot.isFilled) return;
    if (slot.hasAsked || standOf(slot) != Stand::near) continue;
    slot.hasAsked = true;
    slot.block->approach(std::exchange(slot.freshness, Freshness::known));
  }
}

PageBlocks::Anchor PageBlocks::anchor() const {
  const int seen = view_.verticalScrollBar()->value();
  if (seen == 0) return {};
  for (const Slot& slot : slots_) {
    if (slot.block == nullptr || slot.block->isHidden()) continue;
    if (slot.block->geometry().bottom() >= seen) return {slot.block, seen - slot.block->y()};
  }
  return {};
}

void PageBlocks::bringBack(const Anchor& anchor) {
  const bool wasFilling = std::exchange(isFilling_, true);
  layout_.activate();
  // Else the view learns of the new height too late to be scrolled there.
  QEvent request(QEvent::LayoutRequest);
  QCoreApplication::sendEvent(&view_, &request);
  if (anchor.widget != nullptr && !anchor.widget->isHidden())
    view_.verticalScrollBar()->setValue(anchor.widget->y() + anchor.above);
  held_ = this->anchor();
  isFilling_ = wasFilling;
}

}  // namespace quillet
