// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/text.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::string_view_literals;

TEST(Utf8, LengthOfTheFirstSequence) {
  const std::pair<std::size_t, std::vector<std::string_view>> cases[] = {
      {1, {"\0"sv}},
      {2, {"\xC2\x80"}},
      // The lowest, and those around the surrogates.
      {3, {"\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80"}},
      {4, {"\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBFx"}},
      // Nothing, a continuation, a lead of five, what is beyond the last.
      {0, {"", "\x80", "\xF8\x88\x80\x80\x80", "\xF4\x90\x80\x80"}},
      // Over-long forms and surrogates.
      {0, {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF"}},
      // Cut off, or no continuation where one is due.
      {0, {"\xE2\x82", "\xE2\x82(", "\xC3("}},
  };
  for (const auto& [length, texts] : cases) {
    for (const std::string_view text : texts)
      EXPECT_EQ(utf8SequenceLength(text), length) << testing::PrintToString(text);
  }
}

TEST(Text, TrimmedOfEveryWhiteSpaceAndNothingElse) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {" \t\r\n\v\f", ""},
      {"\u00A0\u2000\u200Aa\u202F\u3000\u2028\u2029\u0085\u205F\u1680", "a"},
      {"\u200B\u200D a \u2060", "\u200B\u200D a \u2060"},
      {"\x80\xA0 ", "\x80\xA0"},
      {"a \xC2", "a \xC2"},
      // The view ends before the byte that would complete a space.
      {"a\xE2\x80\x80"sv.substr(0, 3), "a\xE2\x80"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(trimmed(text), expected) << text;
}

TEST(Text, PrintableHoldsNoControls) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"\x1b]0;title\x07", "]0;title"},
      {"a\0\x7F z"sv, "a z"},
      {"\u009B31m\u0085\u0080x\u00A0", "31mx\u00A0"},
      {"é 東 😀\tb\r\nc", "é 東 😀 b c"},
      {"\xFF\x9B\xC2", "\uFFFD\uFFFD\uFFFD"},
      // Overrides, embeddings and isolates, and what stands beside them; marks turn nothing around.
      {"a\u202A\u202B\u202C\u202D\u202Eb\u2066\u2067\u2068\u2069c", "abc"},
      {"\u2027\u202F\u2065\u206A\u200F", "\u2027\u202F\u2065\u206A\u200F"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(printable(text), expected);
  EXPECT_EQ(printable("one\r\n\ttwo\n\x1b\n", LineFeeds::keep), "one\n two\n\n");
}

TEST(Text, SplitKeepsEmptyPieces) {
  EXPECT_EQ(split("", ',').size(), 1U);
  EXPECT_EQ(split(",a,,b,", ','), (std::vector<std::string_view>{"", "a", "", "b", ""}));
  EXPECT_EQ(join({"", "a", ""}, ", "), ", a, ");
  EXPECT_EQ(lowerAscii("ABZ[É@"), "abz[É@");
}

}  // namespace
}  // namespace quillet
