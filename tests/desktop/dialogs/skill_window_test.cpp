// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/skill_window.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/lists/list_fixtures.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

TEST(SkillWindow, ShowsWhatChangesBeforeItIsWritten) {
  const TemporaryFolder home;
  const fs::path file = home.path() / ".wren/skills/quillet/SKILL.md";
  fs::create_directories(file.parent_path());
  std::ofstream(file) << "# Quillet\nAsk gently.\n";
  const std::string skill = stampedSkill("# Quillet\nAsk.\n", "1.1");
  TestWorld world;
  auto* window = new SkillWindow(world.world(), home.path(), skill, nullptr);
  const auto button = [window](const char* text) -> QPushButton* {
    for (auto* each : window->findChildren<QPushButton*>())
      if (each->text() == QString::fromUtf8(text)) return each;
    return nullptr;
  };
  window->show();
  auto* list = window->findChild<QListWidget*>();
  auto* text = window->findChild<QPlainTextEdit*>();
  EXPECT_TRUE(list->item(0)->text().endsWith(u": changed, or not from Quillet"_s));
  EXPECT_TRUE(text->toPlainText().startsWith(u"  # Quillet\n- Ask gently.\n+ Ask."_s));
  EXPECT_FALSE(button("Remove")->isEnabled());
  button("Replace")->click();
  EXPECT_EQ(contentOf(file), skill);
  EXPECT_EQ(text->toPlainText().toStdString(), skill);
  EXPECT_FALSE(button("Install")->isEnabled());
  std::ofstream(file) << stampedSkill("# Quillet\n", "2.0");
  window->look();
  EXPECT_TRUE(list->item(0)->text().endsWith(u": a newer version"_s));
  EXPECT_TRUE(button("Replace") != nullptr && button("Remove")->isEnabled());
  button("Remove")->click();
  EXPECT_FALSE(fs::exists(file.parent_path()));

  world.parts.prompts.chosen = home.path() / "elsewhere";
  button("Choose Folder…")->click();
  handlePendingEvents();
  EXPECT_EQ(list->count(), 2);
  button("Install")->click();
  EXPECT_EQ(contentOf(home.path() / "elsewhere/quillet/SKILL.md"), skill);
  std::ofstream(home.path() / "elsewhere/quillet/SKILL.md") << "mine";
  button("Remove")->click();
  bool saysWhy = false;
  for (const auto* label : window->findChildren<QLabel*>())
    saysWhy = saysWhy || label->text().endsWith(u"has changed meanwhile. Nothing was done."_s);
  EXPECT_TRUE(saysWhy);

  world.parts.prompts.chosen = home.path() / ".wren/skills";
  button("Choose Folder…")->click();
  handlePendingEvents();
  EXPECT_EQ(list->count(), 2) << "it is listed already";
  button("Install")->click();
  EXPECT_EQ(contentOf(file), skill) << "and is the one that was chosen";
  delete window;
}

}  // namespace
}  // namespace quillet
