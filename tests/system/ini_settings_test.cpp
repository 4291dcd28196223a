// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temporary_folder.h"
#include "system/settings.h"

namespace quillet {
namespace {

TEST(IniSettings, TakeWhatCanBeReadOfADamagedFile) {
  const std::string longLine(100'000, 'a');
  const std::tuple<const char*, std::string, std::optional<std::string>> cases[] = {
      {"no section", "k=1\n", {}},
      {"section comes later", "k=1\n[General]\nk=2", "2"},
      {"carriage returns and a mark", "\xEF\xBB\xBF[General]\r\nk=1\r\n", "1"},
      {"last one counts", "[General]\nk=1\nk=2\n", "2"},
      {"section in two places", "[General]\nk=1\n[O]\nk=2\n[General]\nx=1\n", "1"},
      {"indented line is no continuation", "[General]\nx=1\n  k=2\n\t y\n", "2"},
      {"open quote", "[General]\nk=\"a\nx=1\n", "a"},
      {"backslash at the end", "[General]\nk=a\\\n", "a"},
      {"half a surrogate pair", "[General]\nk=\\xd83dz\n", "\xEF\xBF\xBDz"},
      {"pair as two escapes", "[General]\nk=\"\\xd83d\\xde00\"\n", "😀"},
      {"number too large", "[General]\nk=\\x123456789abcdef012345\n", "\xEF\xBF\xBD"},
      {"no digits", "[General]\nk=\\xz\n", std::string("\0z", 2)},
      {"octal", "[General]\nk=\\101\\8\n", "A8"},
      {"long key", "[General]\n" + longLine + "=1\nk=1\n", "1"},
      {"long line before", "[General]\n" + longLine + "\nk=1\n", "1"},
      {"long line hides no key", "[General]\nx=" + std::string(400, ' ') + "k=1\n", {}},
      {"zero byte in the key", std::string("[General]\nk\0=1\nk=2\0\n", 19), {}},
  };
  for (const auto& [situation, file, expected] : cases) {
    EXPECT_EQ(IniSettings::parse(file).text("k"), expected) << situation;
  }
}

TEST(IniSettings, AreEmptyWithoutAReadableFile) {
  const TemporaryFolder folder;
  const std::string path = folder.path();
  EXPECT_EQ(IniSettings{path}.text("k"), std::nullopt) << "a directory";
  ASSERT_EQ(::mkfifo((path + "/pipe").c_str(), 0600), 0);
  EXPECT_EQ(IniSettings{path + "/pipe"}.text("k"), std::nullopt) << "which nobody writes into";
}

}  // namespace
}  // namespace quillet
