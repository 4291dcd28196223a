// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// Widths are counted in user-perceived characters: a family emoji, a flag, a letter with its
/// accents count as one.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The first `count` user-perceived characters.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Text longer than `width` is cut to end with `mark` at exactly that width.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width,
                                    std::string_view mark);

/// Padded with blanks to `width`; text at or over the width gets a single blank instead.
[[nodiscard]] std::string column(std::string_view text, std::size_t width);

/// Padded with blanks on the left to `width`; wider text stays as it is.
[[nodiscard]] std::string rightAligned(std::string_view text, std::size_t width);

/// Greedy word wrap at blanks: no line is wider than `width` unless one word alone is. Line feeds
/// in the text start a new line.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace quillet
