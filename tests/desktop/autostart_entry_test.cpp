// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/autostart_entry.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

class AutostartEntryTest : public testing::Test {
 protected:
  void write(std::string_view text) const {
    fs::create_directories(file().parent_path());
    std::ofstream(file(), std::ios::binary) << text;
  }
  fs::path file() const { return directory() / "quillet.desktop"; }
  fs::path directory() const { return fs::path(folder_.path().toStdString()) / "a" / "autostart"; }

  QTemporaryDir folder_;
  AutostartEntry entry_{directory(), "/opt/quillet/bin/quillet"};
};

TEST_F(AutostartEntryTest, IsWrittenReadBackAndRemoved) {
  EXPECT_FALSE(entry_.isEnabled());
  entry_.enable();
  EXPECT_EQ(contentOf(file()), R"([Desktop Entry]
Type=Application
Name=Quillet
Comment=Checks the prices of the apps that you watch
Icon=quillet
Exec="/opt/quillet/bin/quillet" --background
Terminal=false
StartupNotify=false
X-GNOME-Autostart-enabled=true
X-GNOME-Autostart-Delay=20
)");
  EXPECT_TRUE(entry_.isEnabled());
  entry_.disable();
  EXPECT_FALSE(fs::exists(file()));
  entry_.disable();
}

TEST_F(AutostartEntryTest, QuotesAnyPath) {
  const std::pair<const char*, const char*> rows[] = {
      {"/home/ann lee/q", R"(Exec="/home/ann lee/q" --background)"},
      {"/50%/$HOME/`q`", R"(Exec="/50%%/\\$HOME/\\`q\\`" --background)"},
      {R"(/say "hi"/back\slash)", R"(Exec="/say \\"hi\\"/back\\\\slash" --background)"},
      {"/two\nlines\tand é;&|", R"(Exec="/two\nlines\tand é;&|" --background)"},
  };
  for (const auto& [path, line] : rows) {
    EXPECT_NE(autostartEntryText(path).find(std::string("\n") + line + '\n'), std::string::npos)
        << autostartEntryText(path);
  }
}

TEST_F(AutostartEntryTest, IsOffWhenTheUserSaidSo) {
  const struct {
    const char* situation;
    const char* text;
    bool isOn;
  } rows[] = {
      {"blanks around the sign", "[Desktop Entry]\nExec = quillet\nHidden = false\n", true},
      {"hidden", "[Desktop Entry]\nExec=quillet\nHidden=true\n", false},
      {"turned off", "[Desktop Entry]\r\nX-GNOME-Autostart-enabled=false\r\nExec=quillet\r\n",
       false},
      {"hidden in another group or a comment",
       "[Desktop Entry]\nExec=quillet\n#Hidden=true\n[Desktop Action x]\nHidden=true\n", true},
      {"starts nothing", "[Desktop Entry]\nExec=\n", false},
      {"cut short", "[Desktop En", false},
      {"empty", "", false},
  };
  for (const auto& row : rows) {
    write(row.text);
    EXPECT_EQ(entry_.isEnabled(), row.isOn) << row.situation;
  }
  entry_.enable();
  EXPECT_TRUE(entry_.isEnabled()) << "after the user changed their mind";
}

TEST_F(AutostartEntryTest, AFailureIsToldAndChangesNothing) {
  fs::create_directories(file() / "in the way");
  EXPECT_THROW(entry_.enable(), LoginItemError);
  EXPECT_THROW(entry_.disable(), LoginItemError);
  EXPECT_FALSE(entry_.isEnabled());
  EXPECT_EQ(std::distance(fs::directory_iterator(directory()), fs::directory_iterator()), 1)
      << "nothing half written is left";
}

}  // namespace
}  // namespace quillet
