// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/window_geometry.h"

#include <algorithm>

namespace quillet {

namespace {

constexpr QSize kUsual(1280, 800);
constexpr double kMostOfScreen = 0.9;  // at first
constexpr QSize kSeen(120, 40);        // as much of it has to be on a screen to be caught

int distance(const QRect& screen, const QPoint& point) {
  const int x = std::max({screen.left() - point.x(), 0, point.x() - screen.right()});
  const int y = std::max({screen.top() - point.y(), 0, point.y() - screen.bottom()});
  return std::max(x, y);
}

const QRect& nearest(const std::vector<QRect>& screens, const QPoint& point) {
  return *std::ranges::min_element(screens, {},
                                   [&](const QRect& screen) { return distance(screen, point); });
}

bool canBeCaught(const QRect& window, const QRect& screen) {
  // By its upper edge, where a window is held.
  const QRect seen = window.intersected(screen);
  return seen.width() >= kSeen.width() && seen.height() >= kSeen.height() &&
         window.top() >= screen.top();
}

QRect movedInto(QRect window, const QRect& screen) {
  window.setSize(window.size().boundedTo(screen.size()));
  window.moveLeft(std::clamp(window.left(), screen.left(), screen.right() + 1 - window.width()));
  window.moveTop(std::clamp(window.top(), screen.top(), screen.bottom() + 1 - window.height()));
  return window;
}

QRect first(const QRect& screen) {
  const QSize size = kUsual.boundedTo((QSizeF(screen.size()) * kMostOfScreen).toSize())
                         .expandedTo(kSmallestWindow);
  QRect window({}, size);
  window.moveCenter(screen.center());
  return window;
}

}  // namespace

QRect windowGeometry(const QRect& kept, const std::vector<QRect>& screens) {
  if (kept.isEmpty()) return first(screens.front());
  const QRect window(kept.topLeft(), kept.size().expandedTo(kSmallestWindow));
  const QRect& screen = nearest(screens, window.center());
  const bool isCaught =
      std::ranges::any_of(screens, [&](const QRect& each) { return canBeCaught(window, each); });
  if (isCaught && window.width() <= screen.width() && window.height() <= screen.height())
    return window;
  return movedInto(window, screen);
}

}  // namespace quillet
