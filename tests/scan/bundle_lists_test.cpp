// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/bundle_lists.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillet {
namespace {

using Entries = std::vector<std::pair<const char*, std::string>>;

std::string listOf(const Entries& entries) {
  std::string text = "<plist><dict>";
  for (const auto& [key, value] : entries) {
    text += fmt::format("<key>{}</key><string>{}</string>", key, value);
  }
  return text + "</dict></plist>";
}

TEST(BundleLists, TakesTheBestTextThatSaysSomething) {
  const std::string tooLong(1025, 'x');
  struct Row {
    const char* what;
    Entries entries;
    BundleInfo expected;
  };
  const std::vector<Row> rows{
      {"all",
       {{"CFBundleIdentifier", "com.example.Tool-1_2"},
        {"CFBundleName", "T"},
        {"CFBundleDisplayName", "Tool"},
        {"CFBundleVersion", "77"},
        {"CFBundleShortVersionString", "2.1"},
        {"LSMinimumSystemVersion", "12.0"},
        {"CFBundleExecutable", "tool"}},
       {"com.example.Tool-1_2", "Tool", "2.1", "12.0", "tool"}},
      {"second choice",
       {{"CFBundleDisplayName", " \n "},
        {"CFBundleName", "T"},
        {"CFBundleVersion", "77"},
        {"MinimumOSVersion", "16.4"}},
       {{}, "T", "77", "16.4", {}}},
      {"too long",
       {{"CFBundleIdentifier", tooLong},
        {"CFBundleDisplayName", tooLong},
        {"CFBundleName", "T"},
        {"CFBundleExecutable", tooLong}},
       {{}, "T", {}, {}, {}}},
      {"made printable", {{"CFBundleName", " a\u202Eb\u001B[1m\n"}}, {{}, "ab[1m", {}, {}, {}}},
      {"two identifiers", {{"CFBundleIdentifier", "com.example.a,com.example.b"}}, {}},
      {"an address", {{"CFBundleIdentifier", "com.example&amp;country=de"}}, {}},
      {"up and out", {{"CFBundleExecutable", ".."}}, {}},
      {"elsewhere", {{"CFBundleExecutable", "../../../bin/true"}}, {}},
  };
  for (const Row& row : rows)
    EXPECT_EQ(readBundleInfo(listOf(row.entries)), row.expected) << row.what;
}

TEST(BundleLists, TakesTheTrackIdOfTheStoresNote) {
  const std::vector<std::pair<std::string, std::optional<std::int64_t>>> rows{
      {"<integer>1480068668</integer>", 1480068668},
      {"<string>1480068668</string>", 1480068668},
      {"<integer>0</integer>", {}},
      {"<integer>-1</integer>", {}},
      {"<string>id1480068668</string>", {}},
      {"<true/>", {}},
  };
  for (const auto& [value, expected] : rows) {
    const std::string list = "<plist><dict><key>itemId</key>" + value + "</dict></plist>";
    EXPECT_EQ(readStoreNote(list).trackId, expected) << value;
  }
}

}  // namespace
}  // namespace quillet
