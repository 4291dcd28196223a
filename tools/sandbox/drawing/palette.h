// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quillet::sandbox {

/// A colour as 0xAARRGGBB; without any alpha it is one of the palette's, by the names below.
using Ink = std::uint32_t;

inline constexpr Ink kGlyph = 1;   ///< what an icon shows
inline constexpr Ink kSoft = 2;    ///< between that and the ground
inline constexpr Ink kAccent = 3;  ///< stands out
inline constexpr Ink kDeep = 4;    ///< darker than the ground, or dark on a light one
inline constexpr Ink kGround = 5;

/// Whether the ground is a colour, nearly black or nearly white.
enum class Tone : std::uint8_t { vivid = 1, dark = 2, pale = 4 };

/// The colours of an icon. Ground and glyph go from a colour on top to another at the bottom.
struct Palette {
  std::string_view name;
  Tone tone;
  Ink top, bottom;
  Ink glyphTop, glyphBottom;
  Ink soft, accent, deep;
};

[[nodiscard]] std::span<const Palette> palettes();

/// The palette of that name. Throws std::out_of_range where there is none.
[[nodiscard]] const Palette& paletteNamed(std::string_view name);

}  // namespace quillet::sandbox
