// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/state_file.h"

#include <gtest/gtest.h>

#include "support/event_loop.h"
#include "support/temporary_folder.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

class StateFileTest : public testing::Test {
 protected:
  const TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_.path() / "state" / "windows.json";
};

TEST_F(StateFileTest, KeepsWhatWasSetLastWithItsEnd) {
  {
    StateFile state(file_);
    EXPECT_TRUE(state.value(QStringLiteral("width")).isUndefined());
    state.setValue(QStringLiteral("width"), 7);
    state.setValue(QStringLiteral("width"), 8);
    EXPECT_FALSE(std::filesystem::exists(file_)) << "changes come in bursts";
  }
  EXPECT_EQ(StateFile(file_).value(QStringLiteral("width")), 8);
  const auto written = std::filesystem::last_write_time(file_);
  StateFile(file_).setValue(QStringLiteral("width"), 8);
  EXPECT_EQ(std::filesystem::last_write_time(file_), written) << "nothing new, nothing written";
}

TEST_F(StateFileTest, WritesAMomentAfterTheLastChange) {
  StateFile state(file_);
  state.setValue(QStringLiteral("width"), 7);
  waitFor([&] { return std::filesystem::exists(file_); });
  EXPECT_EQ(StateFile(file_).value(QStringLiteral("width")), 7);
}

TEST_F(StateFileTest, IsEmptyWhereItCannotBeReadAndQuietWhereItCannotBeWritten) {
  std::filesystem::create_directory(file_.parent_path());
  for (const char* text : {"", "{\"width\":", "[7]", "\xff\xfe"}) {
    replaceFile(file_, text);
    EXPECT_TRUE(StateFile(file_).value(QStringLiteral("width")).isUndefined()) << text;
  }
  std::filesystem::remove(file_);
  std::filesystem::create_directory(file_);
  StateFile(file_).setValue(QStringLiteral("width"), 7);
  EXPECT_TRUE(std::filesystem::is_directory(file_));
}

}  // namespace
}  // namespace quillet
