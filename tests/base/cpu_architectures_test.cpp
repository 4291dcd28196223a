// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/cpu_architectures.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(CpuArchitecturesTest, SayNoMoreThanTheirWords) {
  struct Row {
    std::string_view words;
    std::optional<std::string> written;
    std::optional<bool> needsRosetta;
    bool is32BitAlone;
  };
  const Row rows[] = {
      {"", {}, {}, false},
      {"x86_64 arm64", "arm64 x86_64", false, false},
      {"x86_64", "x86_64", true, false},
      {"i386 x86_64", "x86_64 i386", true, false},
      {"i386", "i386", false, true},
      {"ppc i386", "i386 ppc", false, true},
      {"ppc", "ppc", false, false},
      {" i386  riscv", "i386 other", false, false},
  };
  for (const Row& row : rows) {
    const CpuArchitectures all = architecturesIn(row.words);
    EXPECT_EQ(wordsOf(all), row.written) << row.words;
    EXPECT_EQ(needsRosetta(all), row.needsRosetta) << row.words;
    EXPECT_EQ(is32BitAlone(all), row.is32BitAlone) << row.words;
  }
}

}  // namespace
}  // namespace quillet
