// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(Columns, CountWhatATerminalGivesACharacter) {
  const std::tuple<std::string_view, std::size_t, const char*> cases[] = {
      {"", 0, "nothing"},
      {"plain", 5, "ASCII"},
      {"é½ß", 3, "Latin"},
      {"e\u0301a\u0323\u0308", 2, "combining marks"},
      {"メモの庭", 8, "East Asian wide"},
      {"ﾒﾓ￥５", 6, "half and full width"},
      {"…—★█°", 5, "ambiguous in East Asia"},
      {"한\u1112\u1161\u11AB", 4, "a Korean syllable in one and in three code points"},
      {"🇩🇪🇯🇵", 4, "flags"},
      {"👩‍👩‍👧👍🏽", 4, "a family, a skin tone"},
      {"✈✈\uFE0F1\uFE0F\u20E3", 5, "a sign as text, as emoji, a keycap"},
      {"a\u200B\u2060\u00ADb", 3, "format characters, and the soft hyphen that terminals show"},
      {"กำ", 2, "a vowel that stands beside its consonant"},
      {"\xFF\xFE", 2, "no UTF-8"},
  };
  for (const auto& [text, count, what] : cases) EXPECT_EQ(columnCount(text), count) << what;
}

TEST(Columns, CutBetweenWholeCharacters) {
  const std::tuple<std::string_view, std::size_t, std::string_view> cases[] = {
      {"メモの庭", 5, "メモ"},
      {"a👩‍👩‍👧b", 2, "a"},
      {"a👩‍👩‍👧b", 3, "a👩‍👩‍👧"},
      {"e\u0301e\u0301", 1, "e\u0301"},
  };
  for (const auto& [text, count, first] : cases) EXPECT_EQ(firstColumns(text, count), first);
  EXPECT_EQ(firstCharacters("メモの庭", 3), "メモの");
}

TEST(Columns, ShortenAndPad) {
  // The text and the width; the text shortened, as a column and as one of numbers.
  using Text = std::string_view;
  const std::tuple<Text, std::size_t, Text, Text, Text> cases[] = {
      {"ab", 3, "ab", "ab ", " ab"},
      {"abc", 3, "abc", "abc ", "abc"},
      {"abcd", 3, "ab…", "abcd ", "abcd"},
      {"abc", 1, "…", "abc ", "abc"},
      {"abc", 0, "", "abc ", "abc"},
      {"🇩🇪🇯🇵🇫🇷", 4, "🇩🇪…", "🇩🇪🇯🇵🇫🇷 ", "🇩🇪🇯🇵🇫🇷"},
      {"メモの庭", 6, "メモ…", "メモの庭 ", "メモの庭"},
      {"￥500", 7, "￥500", "￥500  ", "  ￥500"},
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
      {"aaa bbbb", 7, {"aaa", "bbbb"}},
      {"a bbbbbbbb c", 3, {"a", "bbbbbbbb", "c"}},
      {"  a   b  ", 5, {"a b"}},
      {"a b\n\nc\n", 3, {"a b", "", "c", ""}},
      {"ééé ééé", 7, {"ééé ééé"}},
      // No blanks, yet not before a full stop either.
      {"庭のメモ。庭 Quill-link", 8, {"庭のメ", "モ。庭", "Quill-link"}},
  };
  for (const auto& [text, width, lines] : cases) EXPECT_EQ(wrapped(text, width), lines) << text;
}

}  // namespace
}  // namespace quillet
