// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// Text from outside so that Markdown (with GitHub's tables) shows every character of it and obeys
/// none, in one line: in a heading, in a table's cell, between emphasis marks.
[[nodiscard]] std::string markdownInline(std::string_view text);

/// The same for running text, which keeps its lines and paragraphs. Nothing follows the last line;
/// empty where there is nothing to show.
[[nodiscard]] std::string markdownParagraphs(std::string_view text);

/// A web address as a link that shows it.
[[nodiscard]] std::string markdownLink(std::string_view address);

}  // namespace quillet
