// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPainterPath>
#include <string_view>

namespace quillet::sandbox {

/// An outline written as in SVG, with the commands M, L, H, V, C, Q, A (of circles and of ellipses
/// that are not turned) and Z, capital ones alone, and three of our own: "O x y r" is a circle,
/// "E x y rx ry" an ellipse, "R x y w h r" a rectangle with round corners. What lies within an even
/// number of outlines is a hole, unless the text begins with "W". Text that is none ends the
/// outline where it stops making sense.
[[nodiscard]] QPainterPath outlineOf(std::string_view text);

}  // namespace quillet::sandbox
