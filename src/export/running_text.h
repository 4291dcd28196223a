// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// Lines that are neither empty nor begin or end with white space.
using TextParagraph = std::vector<std::string>;

/// Running text from outside, printable, as paragraphs: empty lines stand between them.
[[nodiscard]] std::vector<TextParagraph> paragraphsOf(std::string_view text);

/// The same without its line feeds, nor white space at both ends.
[[nodiscard]] std::string inOneLine(std::string_view text);

}  // namespace quillet
