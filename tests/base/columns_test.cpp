// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(Columns, CountWhatAReaderSeesAsCharacters) {
  const std::pair<std::string_view, std::size_t> cases[] = {
      {"", 0},       {"plain", 5}, {"e\u0301a", 2}, {"👩‍👩‍👧", 1},
      {"日本語", 3}, {"🇩🇪🇯🇵", 2},  {"a\r\nb", 3},   {"\xFF\xFE", 2},
  };
  for (const auto& [text, count] : cases) EXPECT_EQ(characterCount(text), count) << text;
}

TEST(Columns, ShortenAndPad) {
  // The text and the width; the text shortened, as a column and as one of numbers.
  using Text = std::string_view;
  const std::tuple<Text, std::size_t, Text, Text, Text> cases[] = {
      {"ab", 3, "ab", "ab ", " ab"},       {"abc", 3, "abc", "abc ", "abc"},
      {"abcd", 3, "ab…", "abcd ", "abcd"}, {"abc", 1, "…", "abc ", "abc"},
      {"abc", 0, "", "abc ", "abc"},       {"🇩🇪🇯🇵🇫🇷", 2, "🇩🇪…", "🇩🇪🇯🇵🇫🇷 ", "🇩🇪🇯🇵🇫🇷"},
  };
  for (const auto& [text, width, cut, padded, right] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(shortened(text, width, "…"), cut);
    EXPECT_EQ(column(text, width), padded);
    EXPECT_EQ(rightAligned(text, width), right);
  }
  EXPECT_EQ(shortened("abcdef", 5, "..."), "ab...");
  EXPECT_EQ(shortened("abcdef", 2, "..."), "..");
}

TEST(Columns, WrapAtBlanks) {
  const std::tuple<std::string_view, std::size_t, std::vector<std::string>> cases[] = {
      {"aaa bbbb", 7, {"aaa", "bbbb"}}, {"a bbbbbbbb c", 3, {"a", "bbbbbbbb", "c"}},
      {"  a   b  ", 5, {"a b"}},        {"a b\n\nc\n", 3, {"a b", "", "c", ""}},
      {"ééé ééé", 7, {"ééé ééé"}},
  };
  for (const auto& [text, width, lines] : cases) EXPECT_EQ(wrapped(text, width), lines) << text;
}

}  // namespace
}  // namespace quillet
