// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/updates_window.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/lists/list_fixtures.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

TEST(UpdatesWindow, ShowsANewReleaseAsPlainTextAndTheWayToItsPage) {
  TestWorld world;
  world.settings.set("updateFeedURL", "https://q.example/r");
  world.http.answer("https://q.example/r", 200,
                    R"({"releases": [{"version": "2.0", "date": "2026-11-19",
                        "notes": "<b>Faster</b>", "page": "https://q.example/2"}]})");
  Updates updates(
      {world.http, world.clock, world.parts.settings, world.parts.state, "1.9", "/srv/quillet"});
  auto* window = new UpdatesWindow(updates, world.parts.prompts, nullptr);
  window->show();
  const auto says = [window](const QString& text) {
    for (const auto* label : window->findChildren<QLabel*>())
      if (label->isVisible() && label->text().startsWith(text)) return true;
    return false;
  };
  const auto button = [window](const QString& text) -> QPushButton* {
    for (auto* each : window->findChildren<QPushButton*>())
      if (each->text() == text && each->isVisible()) return each;
    return nullptr;
  };
  EXPECT_TRUE(says(u"Nobody has looked"_s) && says(u"This is Quillet 1.9."_s));
  EXPECT_FALSE(button(u"Open Page"_s));
  button(u"Check Now"_s)->click();
  EXPECT_FALSE(button(u"Check Now"_s)->isEnabled());
  handlePendingEvents();
  EXPECT_TRUE(says(u"Quillet 2.0 is there since "_s));
  EXPECT_EQ(window->findChild<QPlainTextEdit*>()->toPlainText(), u"<b>Faster</b>"_s);
  button(u"Open Page"_s)->click();
  EXPECT_EQ(world.parts.prompts.opened, std::vector<std::string>{"https://q.example/2"});
  button(u"Skip This Version"_s)->click();
  EXPECT_FALSE(updates.takeNews());
  button(u"No Longer Skip"_s)->click();
  EXPECT_TRUE(updates.takeNews());
  world.parts.settings.forget({"updateFeedURL"});
  EXPECT_TRUE(says(u"Your system's package manager updates Quillet."_s));
  EXPECT_FALSE(button(u"Check Now"_s) || button(u"Skip This Version"_s));
  delete window;
}

}  // namespace
}  // namespace quillet
