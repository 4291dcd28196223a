// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/tool_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

TEST(ToolWindow, SaysHowItStandsBeforeAndAfterwards) {
  const TemporaryFolder folder;
  const fs::path program = folder.path() / "bin/quillet";
  const fs::path home = folder.path() / "home";
  fs::create_directories(program.parent_path());
  fs::create_directories(home);
  std::ofstream(program) << "#!/bin/sh\n";
  auto* window =
      new ToolWindow({program, home, home / ".local/share", home / ".config", ""}, nullptr);
  const auto says = [&window](const char* text) {
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (label->isVisible() && label->text().contains(QString::fromUtf8(text))) return true;
    }
    return false;
  };
  const auto press = [&window](const char* text) {
    for (auto* button : window->findChildren<QPushButton*>()) {
      if (button->text() == QString::fromUtf8(text) && button->isEnabled()) button->click();
    }
  };
  window->show();
  EXPECT_TRUE(says("Not in PATH. ") && says("The program: to be made"));
  EXPECT_TRUE(window->findChild<QLineEdit*>()->isVisible()) << "commands are not looked for there";
  const fs::path link = home / ".local/bin/quillet";
  press("Remove");
  QTest::keyClick(window, Qt::Key_Return);
  EXPECT_EQ(fs::read_symlink(link), program);
  EXPECT_TRUE(says("Installed by Quillet, but not in PATH") && says("The program: installed"));
  press("Remove");
  EXPECT_FALSE(fs::exists(fs::symlink_status(link)));

  fs::create_directories(link.parent_path());
  std::ofstream(link) << "mine";
  window->look();
  EXPECT_TRUE(says("Points elsewhere: ") && says("something else is there, and stays"));
  fs::remove_all(home / ".local");
  std::ofstream(home / ".local") << "mine";
  window->look();
  press("Install");
  EXPECT_TRUE(says("could not be made: "));
  delete window;

  // A program that lies in the folder needs no links, but the line.
  fs::remove(home / ".local");
  fs::create_directories(link.parent_path());
  fs::rename(program, link);
  window = new ToolWindow({link, home, home / ".local/share", home / ".config", ""}, nullptr);
  window->show();
  EXPECT_TRUE(says("Not in PATH: this program lies in ") && !says("these links"));
  EXPECT_TRUE(window->findChild<QLineEdit*>()->isVisible());
  delete window;
}

}  // namespace
}  // namespace quillet
