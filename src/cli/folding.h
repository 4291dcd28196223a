// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillet {

/// How many columns of a terminal a text takes.
using ColumnMeasure = std::size_t (*)(std::string_view text);

/// Lines that are wider than `width` parted at blanks, so that the terminal parts no word; what is
/// wider alone stays whole. A line goes on under its second column, where two blanks set one off,
/// else under its beginning. Colours take no room. A width of 0 leaves the text as it is.
[[nodiscard]] std::string folded(std::string_view text, std::size_t width, ColumnMeasure measure);

}  // namespace quillet
