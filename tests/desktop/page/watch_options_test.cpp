// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/watch_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "desktop/page/page_fixture.h"
#include "desktop/page/watch_options_form.h"

namespace quillet {
namespace {

class WatchOptionsTest : public PageTest {
 protected:
  std::unique_ptr<WatchOptionsForm> form(std::vector<WatchedApp> apps) {
    return std::make_unique<WatchOptionsForm>(pageWorld(), std::move(apps), std::nullopt);
  }
  PageWorld pageWorld() { return {world(), std::make_shared<const LocaleFormats>(UserLocale())}; }
  static WatchedApp app(std::int64_t trackId, const char* currency = "USD") {
    WatchedApp app = watched(trackId);
    app.currency = currency;
    return app;
  }
  static QCheckBox& anyDrop(QWidget& form) { return *form.findChildren<QCheckBox*>().front(); }
  static QLineEdit& target(QWidget& form) { return *form.findChild<QLineEdit*>(); }
};

TEST_F(WatchOptionsTest, OnlyWhatWasSetIsChanged) {
  WatchedApp first = app(1);
  first.alertOnAnyDrop = true;
  first.targetPrice = 2.99;
  first.mutedUntil = kNow + std::chrono::hours(1);
  const auto both = form({first, app(2)});
  EXPECT_EQ(anyDrop(*both).checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(both->change(), WatchChange()) << "nothing was touched";
  anyDrop(*both).click();
  WatchChange drops;
  drops.anyDrop = true;
  EXPECT_EQ(both->change(), drops);

  const auto one = form({first});
  EXPECT_EQ(one->change(), WatchChange());
  target(*one).clear();
  one->findChild<QComboBox*>()->setCurrentText(QStringLiteral("Not muted"));
  WatchChange none;
  none.target = WatchChange::Target{};
  none.mute = WatchChange::Mute{};
  EXPECT_EQ(one->change(), none);
}

TEST_F(WatchOptionsTest, ATargetThatIsNoPriceIsNotKept) {
  struct Case {
    const char* text;
    bool isValid;
    const char* remark;
  };
  const Case cases[] = {{"4.98", true, ""},
                        {"4,99", true, "Already reached: now $4.99"},
                        {"-1", false, "No price is below 0"},
                        {"cheap", false, "Write a price, as 2.99"}};
  const auto one = form({app(1)});
  for (const Case& each : cases) {
    target(*one).setText(QString::fromLatin1(each.text));
    EXPECT_EQ(one->isValid(), each.isValid) << each.text;
    EXPECT_EQ(one->change().target.has_value(), each.isValid) << each.text;
    EXPECT_EQ(target(*one).accessibleDescription().toStdString(), each.remark);
  }
  EXPECT_FALSE(target(*form({app(1), app(2, "EUR")})).isEnabled()) << "in which currency?";
}

/// Whoever closes it has made up their mind, and can undo it.
TEST_F(WatchOptionsTest, EscapeKeepsWhatWasChanged) {
  change(watchApps, std::vector{app(1)});
  QWidget window;
  window.resize(760, 520);
  QWidget button(&window);
  QLineEdit list(&window);
  window.show();
  window.activateWindow();
  list.setFocus();
  QPointer<WatchOptionsPopover> options =
      new WatchOptionsPopover(pageWorld(), app(1), std::nullopt, &window);
  options->openBelow(button, WatchOptionsStart::alerts);
  EXPECT_TRUE(window.rect().contains(options->geometry()));
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
  settle();
  EXPECT_TRUE(options.isNull());
  EXPECT_EQ(window.focusWidget(), &list);
  const auto kept = runTask(store_->read(watchedApps));
  EXPECT_TRUE(kept.front().alertOnAnyDrop);
}

}  // namespace
}  // namespace quillet
