// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <compare>
#include <string_view>

namespace quillet {

/// Compares versions piece by piece at the dots, as integers: empty pieces are dropped, a piece
/// counts by its leading digits (none is 0), and the shorter version is continued with zeros. So
/// "14" equals "14.0.0" and "13.5" is less than "13.10".
[[nodiscard]] std::strong_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace quillet
