// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/drawing/motif.h"

// The tables of motifs, one file each, and what their rows have in common.
namespace quillet::sandbox {

inline constexpr std::uint8_t kVivid = 1;
inline constexpr std::uint8_t kDark = 2;
inline constexpr std::uint8_t kPale = 4;
inline constexpr std::uint8_t kColour = kVivid | kDark;
inline constexpr std::uint8_t kAny = kVivid | kDark | kPale;

inline constexpr Ink kWhite = 0xFFFFFFFF;
inline constexpr Ink kRed = 0xFFFF6B6B;
inline constexpr Ink kYellow = 0xFFFFD166;
inline constexpr Ink kTurquoise = 0xFF4ECDC4;
inline constexpr Ink kBlue = 0xFF5B8DEF;
inline constexpr Ink kOrange = 0xFFF2734A;
inline constexpr Ink kGreen = 0xFF34B38A;
inline constexpr Ink kGold = 0xFFF5B83D;

[[nodiscard]] std::span<const Motif> paperMotifs();
[[nodiscard]] std::span<const Motif> natureMotifs();
[[nodiscard]] std::span<const Motif> toolMotifs();
[[nodiscard]] std::span<const Motif> mediaMotifs();
[[nodiscard]] std::span<const Motif> lifeMotifs();

}  // namespace quillet::sandbox
