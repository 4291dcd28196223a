// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/pane_ring.h"

#include <QApplication>

namespace quillet {

void putLastInTabOrder(QWidget& pane) {
  std::vector<QWidget*> before;
  std::vector<QWidget*> moved;
  QWidget* const window = pane.window();
  for (QWidget* at = window->nextInFocusChain(); at != window; at = at->nextInFocusChain()) {
    if ((at->focusPolicy() & Qt::TabFocus) == 0) continue;
    (at == &pane || pane.isAncestorOf(at) ? moved : before).push_back(at);
  }
  if (before.empty()) return;
  QWidget* last = before.back();
  for (QWidget* each : moved) {
    QWidget::setTabOrder(last, each);
    last = each;
  }
}

PaneRing::PaneRing(std::vector<Pane> panes, std::function<void()> leave)
    : panes_(std::move(panes)), leave_(std::move(leave)) {}

bool PaneRing::hasFocus(const QWidget& pane) {
  // The window's, which it may have before it is active.
  const QWidget* focused = pane.window()->focusWidget();
  return focused != nullptr && (focused == &pane || pane.isAncestorOf(focused));
}

void PaneRing::goBy(int step) {
  const int count = static_cast<int>(panes_.size());
  int at = step > 0 ? -1 : 0;
  for (int i = 0; i < count; ++i) {
    if (hasFocus(*panes_[static_cast<std::size_t>(i)].pane)) at = i;
  }
  for (int tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    const Pane& next = panes_[static_cast<std::size_t>(at)];
    if (!next.pane->isVisible()) continue;
    next.takeFocus();
    if (hasFocus(*next.pane)) return;
  }
}

}  // namespace quillet
