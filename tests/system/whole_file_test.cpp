// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/whole_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "base/errors.h"
#include "support/message_of.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

class WholeFile : public testing::Test {
 protected:
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_)) found.insert(entry.path().filename());
    return found;
  }

  TemporaryFolder own_;
  fs::path folder_ = own_.path();
  fs::path file_ = folder_ / "shelf.json";
};

TEST_F(WholeFile, TakesTheOldOnesPlaceWithItsPermissionsBehindItsLink) {
  replaceFile(file_, "old");
  fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(file_, folder_ / "link");
  const std::string content = std::string("new\0", 4) + std::string(600'000, 'x');
  replaceFile(folder_ / "link", content);
  EXPECT_EQ(readWholeFile(file_, 600'004), content);
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(names(), (std::set<std::string>{"link", "shelf.json"}));
}

TEST_F(WholeFile, LeavesTheOldOneWhereTheDiskIsFull) {
  replaceFile(file_, "old");
  // Files of this process may hold no more than a full disk would take.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{1000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string message =
      messageOf<FileError>([this] { replaceFile(file_, std::string(2000, 'x')); });
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(message, "'" + file_.string() + "' could not be written: File too large.");
  EXPECT_EQ(readWholeFile(file_, 3), "old");
  EXPECT_EQ(names(), std::set<std::string>{"shelf.json"});
}

TEST_F(WholeFile, SaysWhatStandsInTheWay) {
  replaceFile(file_, "old!");
  const fs::path absent = folder_ / "absent" / "a.json";
  const auto couldNot = [](const fs::path& file, const std::string& why) {
    return "'" + file.string() + "' could not be " + why + ".";
  };
  for (const auto& [file, why] : {std::pair(absent, "written: its folder does not exist"),
                                  std::pair(folder_, "written: it is not a file")}) {
    EXPECT_EQ(messageOf<FileError>([&] { replaceFile(file, "new"); }), couldNot(file, why));
  }
  for (const auto& [file, why] : {std::pair(absent, "read: No such file or directory"),
                                  std::pair(folder_, "read: Is a directory"),
                                  std::pair(file_, "read: it holds more than 3 bytes")}) {
    EXPECT_EQ(messageOf<FileError>([&] { (void)readWholeFile(file, 3); }), couldNot(file, why));
  }
  EXPECT_EQ(names(), std::set<std::string>{"shelf.json"});
}

}  // namespace
}  // namespace quillet
