// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

class QWidget;

namespace quillet {

// What stands over a page has a border and round corners, and is where it belongs.

/// Where a popover of that size stands: below the widget, from its leading edge on, or above it
/// where there is no room on the screen.
[[nodiscard]] QRect popoverPlace(const QWidget& below, const QSize& size);

/// Cuts off the corners: without a compositor a translucent window has black ones.
void cutPopoverCorners(QWidget& popover);

void paintPopover(QWidget& popover);

}  // namespace quillet
