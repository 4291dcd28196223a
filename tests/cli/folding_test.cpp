// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/folding.h"

#include <gtest/gtest.h>

#include "base/columns.h"

namespace quillet {
namespace {

TEST(Folding, PartsLinesAtBlanksAlone) {
  const std::tuple<const char*, std::string_view, std::string_view> rows[] = {
      {"what fits stays", "one two  three\n\nfour", "one two  three\n\nfour"},
      {"under the beginning", "  one two three four", "  one two three\n  four"},
      {"under the second column", "Label  one two three", "Label  one two\n       three"},
      {"a label wider than half of the line", "A label of ten  one two", "A label of ten\none two"},
      {"a word wider than the line", "see https://store.example/app now",
       "see https://store.example/app\nnow"},
      {"behind a label of two words", "A b    https://store.example/app",
       "A b    https://store.example/app"},
      {"a word wider than the room beside the label", "Label  ten-letters", "Label  ten-letters"},
      {"wide characters", "メモの庭 メモの 庭", "メモの庭 メモの\n庭"},
      {"colours take no room", "\x1B[1mone two\x1B[0m three a", "\x1B[1mone two\x1B[0m three a"},
      {"a colour goes on", "\x1B[1mone two three four\x1B[0m", "\x1B[1mone two three\nfour\x1B[0m"},
      {"blanks at the end", "one two three fo  ", "one two three fo"},
  };
  for (const auto& [what, text, lines] : rows)
    EXPECT_EQ(folded(text, 16, columnCount), lines) << what;
  EXPECT_EQ(folded("one two three four five", 0, columnCount), "one two three four five");
}

}  // namespace
}  // namespace quillet
