// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// Widths are those of a terminal, in columns: East Asian wide signs and emoji take two, combining
// marks none. A family emoji, a flag, a letter with its accents are one character each, and no cut
// goes through one. Texts are printable.

/// How many columns a text takes.
[[nodiscard]] std::size_t columnCount(std::string_view text);

/// As many whole characters as have room in `count` columns.
[[nodiscard]] std::string_view firstColumns(std::string_view text, std::size_t count);

/// The first `count` characters, however wide they are.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Text wider than `width` is cut to end with `mark`, at that width or, where a wide character
/// would reach beyond it, a column before.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width,
                                    std::string_view mark);

/// Padded with blanks to `width`; text at or over the width gets a single blank instead.
[[nodiscard]] std::string column(std::string_view text, std::size_t width);

/// Padded with blanks on the left to `width`; wider text stays as it is.
[[nodiscard]] std::string rightAligned(std::string_view text, std::size_t width);

/// Greedy word wrap at blanks, and within words of scripts that set none (Japanese, Thai): no line
/// is wider than `width` unless one word alone is. Line feeds in the text start a new line.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace quillet
