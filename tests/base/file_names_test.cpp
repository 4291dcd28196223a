// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/file_names.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(FileNames, KeepLettersAndDigitsOfAnyScript) {
  const std::pair<std::string, std::string> rows[] = {
      {"Birch: Été №1", "birch--été--1"},
      {"E\u0301te\u0301", "e\u0301te\u0301"},  // the marks stay with their letters
      {"メモの庭 ２", "メモの庭-２"},
      {"../a/b\\c", "---a-b-c"},
      {std::string("a\0b\n", 4), "a-b-"},
      {"", ""},
      {std::string(50, 'A'), std::string(40, 'a')},
  };
  for (const auto& [name, file] : rows) EXPECT_EQ(fileNameOf(name), file);
}

}  // namespace
}  // namespace quillet
