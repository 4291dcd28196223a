// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD in UTF-8

/// The bytes of the well-formed UTF-8 sequence at the start of `text`; 0 where there is none.
[[nodiscard]] std::size_t utf8SequenceLength(std::string_view text);

/// How many code points there are; a wrong byte counts as one where it begins a character.
[[nodiscard]] std::size_t codePointCount(std::string_view text);

/// Appends a character; half of a surrogate pair, and what is no code point, becomes U+FFFD.
void appendUtf8(std::string& text, char32_t point);

/// ASCII letters in lower case; every other byte as it is.
[[nodiscard]] std::string lowerAscii(std::string_view text);

/// Without white space (blank, tab, line feed and kin, no-break space included) at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// What becomes of line feeds in text from outside.
enum class LineFeeds { keep, drop };

/// Text from outside made safe for a terminal: C0 and C1 controls, DEL and what turns the direction
/// of writing (overrides, embeddings, isolates) are removed, invalid UTF-8 becomes U+FFFD. Tabs
/// become blanks; so do line feeds, which stay in running text alone.
[[nodiscard]] std::string printable(std::string_view text, LineFeeds lineFeeds = LineFeeds::drop);

/// Safe for a terminal; empty where it is absent.
[[nodiscard]] std::string shown(const std::optional<std::string>& text);

/// Splits at every separator; empty pieces are kept, so that "" gives one empty piece.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

[[nodiscard]] std::string join(const std::vector<std::string>& pieces, std::string_view separator);

/// In double quotes, to paste into a POSIX shell, bash and zsh with their history included: nothing
/// in the text can end them or run as a command. NUL is left out, for no argument of a process can
/// hold it.
[[nodiscard]] std::string shellQuoted(std::string_view text);

}  // namespace quillet
