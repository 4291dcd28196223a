// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/whole_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QTemporaryDir>
#include <csignal>
#include <set>

#include "base/errors.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

template <typename Action>
std::string messageOf(const Action& action, const fs::path& file) {
  try {
    action(file);
  } catch (const FileError& error) {
    return error.what();
  }
  return "done";
}

/// Files of this process may hold at most this many bytes, as on a full disk.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

class WholeFile : public testing::Test {
 protected:
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_)) found.insert(entry.path().filename());
    return found;
  }

  QTemporaryDir temporary_;
  fs::path folder_ = temporary_.path().toStdString();
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
  std::string message;
  {
    const SmallDisk disk(1000);
    message =
        messageOf([](const fs::path& file) { replaceFile(file, std::string(2000, 'x')); }, file_);
  }
  EXPECT_EQ(message, "'" + file_.string() + "' could not be written: File too large.");
  EXPECT_EQ(readWholeFile(file_, 3), "old");
  EXPECT_EQ(names(), std::set<std::string>{"shelf.json"});
}

TEST_F(WholeFile, SaysWhatStandsInTheWay) {
  replaceFile(file_, "old!");
  const fs::path absent = folder_ / "absent" / "a.json";
  const auto write = [](const fs::path& file) { replaceFile(file, "new"); };
  const auto read = [](const fs::path& file) { static_cast<void>(readWholeFile(file, 3)); };
  const struct {
    void (*action)(const fs::path&);
    fs::path file;
    std::string message;
  } cases[] = {
      {write, absent, "written: its folder does not exist"},
      {write, file_ / "a", "written: its folder does not exist"},
      {write, folder_, "written: it is not a file"},
      {read, absent, "read: No such file or directory"},
      {read, folder_, "read: Is a directory"},
      {read, file_, "read: it holds more than 3 bytes"},
  };
  for (const auto& [action, file, message] : cases) {
    EXPECT_EQ(messageOf(action, file), "'" + file.string() + "' could not be " + message + ".");
  }
  EXPECT_EQ(names(), std::set<std::string>{"shelf.json"});
}

}  // namespace
}  // namespace quillet
