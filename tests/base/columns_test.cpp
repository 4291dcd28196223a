// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

constexpr const char* kFamily = "👩‍👩‍👧";
constexpr const char* kFlags = "🇩🇪🇯🇵";

TEST(Columns, CountWhatAReaderSeesAsCharacters) {
  const std::pair<std::string_view, std::size_t> cases[] = {
      {"", 0},         {"plain", 5},  {"é", 1},    {"e\u0301a", 2},           {kFamily, 1},
      {kFlags, 2},     {"👍🏽!", 2},  {"한국", 2}, {"\u1112\u1161\u11AB", 1}, {"a\r\nb", 3},
      {"\xFF\xFE", 2}, {"日本語", 3},
  };
  for (const auto& [text, count] : cases) {
    EXPECT_EQ(characterCount(text), count) << text;
  }
}

TEST(Columns, ShortenAndPad) {
  struct Case {
    std::string_view text;
    std::size_t width;
    std::string_view shortened;
    std::string_view column;
    std::string_view right;
  };
  const Case cases[] = {
      {"abc", 3, "abc", "abc ", "abc"},
      {"abcd", 3, "ab…", "abcd ", "abcd"},
      {"abc", 1, "…", "abc ", "abc"},
      {"abc", 0, "", "abc ", "abc"},
      {"", 0, "", " ", ""},
      {"日本語", 2, "日…", "日本語 ", "日本語"},
      {"a👩‍👩‍👧e\u0301b", 3, "a👩‍👩‍👧…", "a👩‍👩‍👧e\u0301b ",
       "a👩‍👩‍👧e\u0301b"},
      {"🇩🇪🇯🇵🇫🇷", 2, "🇩🇪…", "🇩🇪🇯🇵🇫🇷 ", "🇩🇪🇯🇵🇫🇷"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(shortened(row.text, row.width, "…"), row.shortened) << row.text << ' ' << row.width;
    EXPECT_EQ(column(row.text, row.width), row.column) << row.text << ' ' << row.width;
    EXPECT_EQ(rightAligned(row.text, row.width), row.right) << row.text << ' ' << row.width;
  }
  EXPECT_EQ(shortened("abcdef", 5, "..."), "ab...");
  EXPECT_EQ(shortened("abcdef", 2, "..."), "..");
}

TEST(Columns, WrapAtBlanks) {
  using Lines = std::vector<std::string>;
  struct Case {
    const char* situation;
    std::string_view text;
    std::size_t width;
    Lines lines;
  };
  const Case cases[] = {
      {"nothing", "", 10, {""}},
      {"one over", "aaa bbbb", 7, {"aaa", "bbbb"}},
      {"one word too wide", "a bbbbbbbb c", 3, {"a", "bbbbbbbb", "c"}},
      {"runs of blanks", "  a   b  ", 5, {"a b"}},
      {"paragraphs", "a b\n\nc\n", 3, {"a b", "", "c", ""}},
      {"characters, not bytes", "ééé ééé", 7, {"ééé ééé"}},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(wrapped(row.text, row.width), row.lines) << row.situation;
  }
}

}  // namespace
}  // namespace quillet
