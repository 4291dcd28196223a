// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/content_pane.h"

#include <QTimer>
#include <algorithm>

namespace quillet {

namespace {

constexpr int kLeastPage = 420;
constexpr int kWide = 900;  // from here on both have room to be at ease
constexpr double kListShare = 0.47;

}  // namespace

ContentPane::ContentPane(QWidget* list, QWidget* page)
    : QSplitter(Qt::Horizontal), list_(list), page_(page), share_(kListShare) {
  addWidget(list);
  addWidget(page);
  setChildrenCollapsible(false);
  connect(this, &QSplitter::splitterMoved, this, [this] {
    const QList<int> parts = sizes();
    share_ = static_cast<double>(parts[0]) / std::max(1, parts[0] + parts[1]);
    Q_EMIT arranged();
  });
  arrange();
}

bool ContentPane::hasRoomForBoth() const {
  return pages_ == Pages::some && width() >= leastList_ + kLeastPage + handleWidth();
}

bool ContentPane::isBeside() const {
  if (pages_ == Pages::none) return false;
  switch (mode_) {
    case PageMode::beside: return hasRoomForBoth();
    case PageMode::alone: return false;
    case PageMode::byWidth: break;
  }
  return width() >= kWide && hasRoomForBoth();
}

void ContentPane::setSpan(PageSpan span) {
  span_ = span;
  arrange();
}

void ContentPane::setPages(Pages pages) {
  if (pages == pages_) return;
  pages_ = pages;
  arrange();
}

void ContentPane::setLeastList(int width) {
  if (width == leastList_) return;
  leastList_ = width;
  arrange();
}

void ContentPane::setMode(PageMode mode) {
  mode_ = mode;
  arrange();
}

void ContentPane::toggleBeside() {
  const bool wanted = !isBeside();
  const bool isUsual = wanted == (width() >= kWide && hasRoomForBoth());
  setMode(isUsual ? PageMode::byWidth : wanted ? PageMode::beside : PageMode::alone);
}

void ContentPane::setListShare(double share) {
  share_ = share > 0 && share < 1 ? share : kListShare;
  divide();
}

void ContentPane::resizeEvent(QResizeEvent* event) {
  arrange();
  QSplitter::resizeEvent(event);
  divide();
}

void ContentPane::arrange() {
  const bool isBoth = isBeside();
  list_->setMinimumWidth(isBoth ? leastList_ : 0);
  page_->setMinimumWidth(isBoth ? kLeastPage : 0);
  // The new one first: what hides while it has the focus gives it to whatever comes next.
  const bool isPageAlone = showsPageAlone();
  list_->setVisible(!isPageAlone);
  if (isBoth && page_->isHidden() && isVisible()) paintPageLater();
  page_->setVisible(isBoth || isPageAlone);
  divide();
  Q_EMIT arranged();
}

/// In an event of its own: with all that moves for its sake it would be longer than a frame.
void ContentPane::paintPageLater() {
  page_->setUpdatesEnabled(false);
  QTimer::singleShot(0, page_, [page = page_] { page->setUpdatesEnabled(true); });
}

void ContentPane::divide() {
  if (!isBeside()) {
    // At once: what is shown without a width forgets where it is scrolled to.
    setSizes({width(), width()});
    return;
  }
  const int whole = width() - handleWidth();
  const int list = std::clamp(static_cast<int>(whole * share_), leastList_, whole - kLeastPage);
  setSizes({list, whole - list});
}

}  // namespace quillet
