// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <vector>

namespace quillet {

inline constexpr QSize kSmallestWindow(760, 520);

/// Where a window goes. `kept`: where it was, empty where that is not known. `screens`: what of
/// each can be used, the usual one first; not empty. A window that was on no screen goes to the
/// nearest, and none is larger than its screen.
[[nodiscard]] QRect windowGeometry(const QRect& kept, const std::vector<QRect>& screens);

}  // namespace quillet
