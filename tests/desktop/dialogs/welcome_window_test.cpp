// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/welcome_window.h"

#include <gtest/gtest.h>

#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "desktop/dialogs/notice_bar.h"
#include "desktop/lists/list_fixtures.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

class WelcomeWindowTest : public testing::Test {
 protected:
  void open() {
    window_ = std::make_unique<WelcomeWindow>(world_.world(), SystemChoices(), nullptr);
    window_->show();
    handlePendingEvents();
  }
  void click(const char* text) {
    for (QAbstractButton* each : window_->findChildren<QAbstractButton*>()) {
      if (each->text() == QLatin1String(text)) each->click();
    }
  }
  QWidget& focused() { return *QApplication::focusWidget(); }
  std::string kept() {
    return world_.settings.text("storefrontCountry").value_or("-") + ' ' +
           world_.settings.text("defaultPlatform").value_or("-");
  }

  TestWorld world_;
  std::unique_ptr<WelcomeWindow> window_;
};

TEST_F(WelcomeWindowTest, IsAnsweredByKeysAlone) {
  struct {
    std::function<void()> act;
    const char* kept;
  } const rows[] = {
      {[] {}, "us mac"},
      {[this] { QTest::keyClick(&focused(), Qt::Key_Down); }, "gb mac"},
      {[this] { QTest::keyClicks(&focused(), u"swit"_s); }, "ch mac"},
      {[this] {
         QTest::keyClicks(&focused(), u"swit"_s);
         QTest::keyClicks(&focused(), u"zz"_s);
       },
       "ch mac"},
      // From the list, letters go to the next name that begins with them.
      {[this] {
         QTest::keyClick(&focused(), Qt::Key_Tab);
         QTest::keyClicks(&focused(), u"jap"_s);
         QTest::keyClick(&focused(), Qt::Key_Tab);
         QTest::keyClick(&focused(), Qt::Key_Right);
       },
       "jp iphone"},
  };
  for (const auto& row : rows) {
    world_.settings = MemorySettings();
    open();
    row.act();
    click("Continue");
    EXPECT_EQ(kept(), row.kept);
  }
}

TEST_F(WelcomeWindowTest, EnterTakesTheStorefrontThatIsFoundAndGoesOn) {
  for (const auto& [text, kept] : {std::pair("zz", "- -"), {"swit", "ch mac"}}) {
    open();
    QTest::keyClicks(&focused(), QLatin1String(text));
    QTest::keyClick(&focused(), Qt::Key_Return);
    EXPECT_EQ(this->kept(), kept) << text;
  }
}

TEST_F(WelcomeWindowTest, KeepsAStepWhereTheUserGoesOnAndNothingOfOneThatIsSkipped) {
  open();
  QTest::keyClicks(&focused(), u"fra"_s);
  click("Skip");
  click("Skip");
  click("Keep checking when the window is closed");
  click("Back");
  click("Add some now");
  click("Back");
  click("Continue");
  EXPECT_EQ(kept(), "fr mac") << "what was answered stays for who comes back";
  EXPECT_EQ(world_.settings.text("keepRunning"), std::nullopt);
  int wanted = 0;
  QObject::connect(window_.get(), &WelcomeWindow::appsWanted, [&] { ++wanted; });
  click("Continue");
  EXPECT_EQ(wanted, 0) << "before all was asked";
  click("Done");
  EXPECT_EQ(wanted, 1);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(world_.settings.text("keepRunning"), "false");
  EXPECT_EQ(world_.settings.text("importPriceData"), std::nullopt) << "left as it was";
  open();
  click("Read published price data");
  for (int i = 0; i < 3; ++i) click("Skip");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(world_.settings.text("importPriceData"), std::nullopt);
}

TEST_F(WelcomeWindowTest, StaysWhereNothingCanBeKept) {
  open();
  world_.settings.refuseWrites("The settings could not be kept: read-only.");
  click("Continue");
  EXPECT_TRUE(window_->findChild<NoticeBar*>()->isVisible());
  click("Continue");
  world_.settings.allowWrites();
  click("Continue");
  EXPECT_EQ(kept(), "us mac");
  EXPECT_FALSE(window_->findChild<NoticeBar*>()->isVisible());
}

TEST(IsNewHere, OnlyWhoLeftNoTrace) {
  const TemporaryFolder folder;
  MemorySettings settings;
  StateFile state(folder.path() / "windows.json");
  EXPECT_TRUE(isNewHere(settings, state));
  settings.set("storefrontCountry", "de");
  EXPECT_FALSE(isNewHere(settings, state));
  settings = MemorySettings();
  rememberWelcome(state);
  EXPECT_FALSE(isNewHere(settings, state));
}

}  // namespace
}  // namespace quillet
