// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/text.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::string_view_literals;

TEST(Utf8, LengthOfTheFirstSequence) {
  const std::tuple<const char*, std::string_view, std::size_t> cases[] = {
      {"nothing", "", 0},
      {"zero byte", "\0"sv, 1},
      {"lowest of two", "\xC2\x80", 2},
      {"lowest of three", "\xE0\xA0\x80", 3},
      {"before the surrogates", "\xED\x9F\xBF", 3},
      {"after the surrogates", "\xEE\x80\x80", 3},
      {"lowest of four", "\xF0\x90\x80\x80", 4},
      {"highest of all", "\xF4\x8F\xBF\xBFx", 4},
      {"continuation alone", "\x80", 0},
      {"over-long two", "\xC1\xBF", 0},
      {"over-long three", "\xE0\x9F\xBF", 0},
      {"over-long four", "\xF0\x8F\xBF\xBF", 0},
      {"high surrogate", "\xED\xA0\x80", 0},
      {"low surrogate", "\xED\xBF\xBF", 0},
      {"cut after two of three", "\xE2\x82", 0},
      {"third is no continuation", "\xE2\x82(", 0},
      {"beyond the last", "\xF4\x90\x80\x80", 0},
      {"lead of five", "\xF8\x88\x80\x80\x80", 0},
      {"second is no continuation", "\xC3(", 0},
  };
  for (const auto& [situation, bytes, length] : cases) {
    EXPECT_EQ(utf8SequenceLength(bytes), length) << situation;
  }
}

TEST(Text, TrimmedOfEveryWhiteSpaceAndNothingElse) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {" \t\r\n\v\f", ""},
      {"\u00A0\u2003a\u202F\u3000\u2028\u2029\u0085\u205F\u1680", "a"},
      {"\u2000\u200A", ""},
      {"\u200B\u200D a \u2060", "\u200B\u200D a \u2060"},
      {"😀 ", "😀"},
      {"a\xE2\x80", "a\xE2\x80"},
      {"\x80\xA0 ", "\x80\xA0"},
      {"a \xC2", "a \xC2"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(trimmed(text), expected) << text;
  }
  // The view ends before the byte that would complete a space.
  EXPECT_EQ(trimmed("a\xE2\x80\x80"sv.substr(0, 3)), "a\xE2\x80");
}

TEST(Text, PrintableHoldsNoControls) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"plain é 東 😀", "plain é 東 😀"},
      {"\x1b[31mred\x1b[0m", "[31mred[0m"},
      {"\x1b]0;title\x07", "]0;title"},
      {"a\0b\x7f"
       "c"sv,
       "abc"},
      {"\u009B31m\u0085\u0080x\u00A0", "31mx\u00A0"},
      {"a\tb", "a b"},
      {"one\r\ntwo\nthree", "one two three"},
      {"\xFF\x9B\xC2", "\uFFFD\uFFFD\uFFFD"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(printable(text), expected);
  }
  EXPECT_EQ(printable("one\r\n\ttwo\n\x1b\n", LineFeeds::keep), "one\n two\n\n");
}

TEST(Text, SplitKeepsEmptyPieces) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(split("", ','), (Pieces{""}));
  EXPECT_EQ(split(",a,,b,", ','), (Pieces{"", "a", "", "b", ""}));
  EXPECT_EQ(join({"", "a", ""}, ", "), ", a, ");
  EXPECT_EQ(join({}, ", "), "");
  EXPECT_EQ(lowerAscii("ABZ[É@"), "abz[É@");
}

}  // namespace
}  // namespace quillet
