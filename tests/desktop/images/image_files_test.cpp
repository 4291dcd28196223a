// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_files.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

TEST(ImageFilesTest, SweepsWhatWasNotUsedForLongest) {
  const TemporaryFolder folder;
  const ImageFiles files(folder.path() / "pictures");
  EXPECT_EQ(files.find("https://a.example/1"), std::nullopt);
  for (const char* name : {"1", "2", "3"}) files.keep(name, std::string(100, *name));
  const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "pictures")) {
    std::filesystem::last_write_time(entry, longAgo);
  }
  EXPECT_EQ(files.find("2"), std::string(100, '2'));
  files.sweep(150);
  EXPECT_EQ(files.size(), 100);
  EXPECT_EQ(files.find("2"), std::string(100, '2'));
}

TEST(ImageFilesTest, KeepsNothingWhereItCannot) {
  const TemporaryFolder folder;
  std::ofstream(folder.path() / "file") << "in the way";
  for (const std::filesystem::path& place : {std::filesystem::path(), folder.path() / "file"}) {
    const ImageFiles files(place);
    files.keep("1", "x");
    EXPECT_EQ(files.find("1"), std::nullopt);
    files.sweep(0);
  }
  EXPECT_EQ(contentOf(folder.path() / "file"), "in the way");
}

}  // namespace
}  // namespace quillet
