// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

// In pixels.

inline constexpr int kPageInset = 24;
inline constexpr int kPageWidest = 1120;  ///< of the content
inline constexpr int kColumnGap = 32;     ///< between two blocks beside one another

/// From this width of the content on, blocks stand in pairs and the header is a wide one: that of a
/// page of 880. In larger text they need as much more.
inline constexpr int kWideContent = 880 - 2 * kPageInset;

}  // namespace quillet
