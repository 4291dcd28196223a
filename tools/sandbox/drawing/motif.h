// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "sandbox/drawing/palette.h"

namespace quillet::sandbox {

/// One stroke of the brush, on a square of a hundred by a hundred.
struct Shape {
  std::string_view outline;  ///< as outlineOf() reads it
  Ink ink = kGlyph;
  double pen = 0;   ///< how wide the outline is drawn, with round ends; 0: it is filled
  double turn = 0;  ///< degrees, clockwise, about the middle
  double opacity = 1;
};

/// What an icon shows.
struct Motif {
  std::string_view name;
  std::uint8_t tones = 0;         ///< the sum of those that it looks well on
  std::array<Shape, 8> shapes{};  ///< from the back to the front; the first empty one ends them
};

/// The motif of that name. Throws std::out_of_range where there is none.
[[nodiscard]] const Motif& motifNamed(std::string_view name);

}  // namespace quillet::sandbox
