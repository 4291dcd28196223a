// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/autostart_entry.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <fstream>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

class AutostartEntryTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  const fs::path directory_ = folder_.path() / "a" / "autostart";
  const fs::path file_ = directory_ / "quillet.desktop";
  AutostartEntry entry_{directory_, "/opt/quillet/bin/quillet"};
};

TEST_F(AutostartEntryTest, IsWrittenReadBackAndRemoved) {
  EXPECT_FALSE(entry_.isEnabled());
  entry_.enable();
  EXPECT_EQ(contentOf(file_), autostartEntryText("/opt/quillet/bin/quillet"));
  EXPECT_TRUE(entry_.isEnabled());
  entry_.disable();
  EXPECT_FALSE(fs::exists(file_));
  entry_.disable();
}

TEST(AutostartEntryText, StartsAnyPathInTheBackground) {
  const std::pair<const char*, const char*> rows[] = {
      {"/home/ann lee/q", R"("/home/ann lee/q")"},
      {"/50%/$HOME/`q`", R"("/50%%/\\$HOME/\\`q\\`")"},
      {R"(/say "hi"/back\slash)", R"("/say \\"hi\\"/back\\\\slash")"},
      {"/two\nlines\tand é;&|", R"("/two\nlines\tand é;&|")"},
  };
  for (const auto& [path, argument] : rows) {
    const std::string text = autostartEntryText(path);
    EXPECT_TRUE(text.starts_with("[Desktop Entry]\nType=Application\nName=Quillet\n"));
    const std::string line = std::string("\nExec=") + argument + " --background\n";
    EXPECT_NE(text.find(line), std::string::npos) << text;
  }
}

TEST_F(AutostartEntryTest, IsAnEntryToOthersToo) {
  const QString validate = QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate"));
  if (validate.isEmpty()) GTEST_SKIP() << "desktop-file-validate is not installed";
  for (const char* program :
       {"/usr/bin/quillet", "/home/ann lee/50%/$q", R"(/a\b/"q")", "/é;&|`"}) {
    AutostartEntry(directory_, program).enable();
    QProcess validation;
    validation.setProcessChannelMode(QProcess::MergedChannels);
    validation.start(validate, {QString::fromStdString(file_.string())});
    ASSERT_TRUE(validation.waitForFinished());
    EXPECT_EQ(validation.exitCode(), 0) << validation.readAll().toStdString();
  }
}

TEST_F(AutostartEntryTest, IsOffWhenTheUserSaidSo) {
  const std::pair<const char*, bool> rows[] = {
      {"[Desktop Entry]\nExec = quillet\nHidden = false\n", true},
      {"[Desktop Entry]\nExec=quillet\nHidden=true\n", false},
      {"[Desktop Entry]\r\nX-GNOME-Autostart-enabled=false\r\nExec=quillet\r\n", false},
      {"[Desktop Entry]\nExec=quillet\n#Hidden=true\n[Desktop Action x]\nHidden=true\n", true},
      {"[Desktop Entry]\nExec=\n", false},
      {"[Desktop En", false},
  };
  fs::create_directories(directory_);
  for (const auto& [text, isOn] : rows) {
    std::ofstream(file_, std::ios::binary) << text;
    EXPECT_EQ(entry_.isEnabled(), isOn) << text;
  }
  entry_.enable();
  EXPECT_TRUE(entry_.isEnabled()) << "after the user changed their mind";
}

TEST_F(AutostartEntryTest, AFailureIsToldAndChangesNothing) {
  fs::create_directories(file_ / "in the way");
  EXPECT_THROW(entry_.enable(), LoginItemError);
  EXPECT_THROW(entry_.disable(), LoginItemError);
  EXPECT_FALSE(entry_.isEnabled());
  EXPECT_EQ(std::distance(fs::directory_iterator(directory_), fs::directory_iterator()), 1)
      << "nothing half written is left";
}

}  // namespace
}  // namespace quillet
