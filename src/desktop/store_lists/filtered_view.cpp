// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/filtered_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <utility>

#include "desktop/lists/section.h"
#include "desktop/store_lists/store_feed.h"

namespace quillet {

FilteredView::FilteredView(QWidget* list, StateFile& state, QString key, bool isShown)
    : state_(state),
      key_(std::move(key)),
      isShown_(state.value(key_).toBool(isShown)),
      panel_(new FilterPanel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(0);
  row->addWidget(panel_);
  row->addWidget(list, 1);
  panel_->setVisible(isShown_);
  connect(panel_, &FilterPanel::changed, this, &FilteredView::filtersChanged);
}

void FilteredView::toggleFilters() {
  isShown_ = !isShown_;
  panel_->setVisible(isShown_);
  state_.setValue(key_, isShown_);
}

void FilteredView::show(FilterPanelState state, const StoreFeed& feed) {
  if (!isShown_) return;
  const FoundApps* found = feed.found();
  if (found != nullptr && !found->apps.empty())
    state.currency = found->apps.front().currency.value_or("");
  panel_->show(state);
  panel_->setCounts(feed.countsOf(panel_->choices()));
}

int FilteredView::leastWidth() const {
  return kLeastListWidth + (isShown_ ? panel_->usualWidth() : 0);
}

/// In large text the panel needs more than usual; the list does, too.
void FilteredView::fitPanel() { panel_->setRoom(width() - kLeastListWidth); }

void FilteredView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitPanel();
}

void FilteredView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && layout() != nullptr) fitPanel();
}

}  // namespace quillet
