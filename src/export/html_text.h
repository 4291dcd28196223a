// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// Text from outside as HTML shows it, in one line: in an element or in a quoted attribute.
[[nodiscard]] std::string htmlInline(std::string_view text);

/// Running text as the content of one element: line breaks within it.
[[nodiscard]] std::string htmlLines(std::string_view text);

/// Running text as elements of its own, one a line, each in the direction of its script; empty
/// where there is nothing to show.
[[nodiscard]] std::string htmlParagraphs(std::string_view text);

/// A web address as a link that shows it.
[[nodiscard]] std::string htmlLink(std::string_view address);

}  // namespace quillet
