// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/chip_bar.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "desktop/lists/chip.h"
#include "desktop/lists/list_fixtures.h"

namespace quillet {
namespace {

using Ids = std::vector<std::string>;

class ChipBarTest : public testing::Test {
 protected:
  ChipBarTest() {
    bar.resize(600, bar.height());
    bar.show();
    bar.setCount(40, 40);
  }

  Chip* chip(const QString& name) { return qobject_cast<Chip*>(button(name)); }
  QAbstractButton* button(const QString& name) {
    for (QAbstractButton* each : bar.findChildren<QAbstractButton*>()) {
      if (each->text() == name) return each;
    }
    return nullptr;
  }
  /// The texts of what is seen, from left to right.
  QStringList seen() {
    QList<QWidget*> parts = bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    parts.removeIf([](const QWidget* part) { return part->isHidden(); });
    std::ranges::sort(parts, {}, &QWidget::x);
    QStringList texts;
    for (const QWidget* part : parts) {
      if (const auto* button = qobject_cast<const QAbstractButton*>(part)) texts << button->text();
      if (const auto* label = qobject_cast<const QLabel*>(part)) texts << label->text();
    }
    return texts;
  }
  Ids last(const QSignalSpy& spy) { return spy.last()[0].value<Ids>(); }

  ChipBar bar{u"Watchlist"_s, testTable()};
};

TEST_F(ChipBarTest, PutsWhatHasNoRoomIntoAMenu) {
  struct {
    int width;
    Ids chosen;
    QStringList seen;
  } const rows[] = {
      {600,
       {},
       {u"Dropped"_s, u"At lowest"_s, u"Target set"_s, u"Free now"_s, u"New version"_s,
        u"40 apps"_s}},
      {380, {}, {u"Dropped"_s, u"At lowest"_s, u"More"_s, u"40 apps"_s}},
      {380,
       {"dropped", "version"},
       {u"Dropped"_s, u"At lowest"_s, u"More"_s, u"Clear"_s, u"40 apps"_s}},
      {220, {}, {u"More"_s, u"40 apps"_s}},
      {120, {}, {u"More"_s}},
  };
  for (const auto& row : rows) {
    bar.resize(row.width, bar.height());
    bar.setChosen(row.chosen);
    EXPECT_EQ(seen(), row.seen) << row.width;
    for (const QWidget* part : bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (part->isHidden()) continue;
      EXPECT_TRUE(bar.rect().contains(part->geometry())) << row.width;
      for (const QWidget* other :
           bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (other != part && !other->isHidden())
          EXPECT_FALSE(part->geometry().intersects(other->geometry())) << row.width;
      }
    }
  }
}

TEST_F(ChipBarTest, OffersTheHiddenOnesInTheMenu) {
  bar.resize(380, bar.height());
  bar.setChosen({"version"});
  QSignalSpy chosen(&bar, &ChipBar::chosenChanged);
  EXPECT_EQ(button(u"More"_s)->accessibleDescription(), u"New version"_s);
  auto* menu = bar.findChild<QMenu*>();
  Q_EMIT menu->aboutToShow();
  QStringList texts;
  for (QAction* action : menu->actions())
    texts << action->text() + (action->isChecked() ? u" ✓"_s : QString());
  EXPECT_EQ(texts, QStringList({u"Target set"_s, u"Free now"_s, u"New version ✓"_s}));
  menu->actions().front()->trigger();
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(last(chosen), (Ids{"target", "version"}));
}

TEST_F(ChipBarTest, IsSetByKeysAndClearedAtOnce) {
  QSignalSpy chosen(&bar, &ChipBar::chosenChanged);
  bar.activateWindow();
  chip(u"Dropped"_s)->setFocus();
  const auto press = [&](Qt::Key key) { QTest::keyClick(bar.window()->focusWidget(), key); };
  press(Qt::Key_Left);  // nowhere to go
  press(Qt::Key_Space);
  EXPECT_EQ(last(chosen), Ids{"dropped"});
  press(Qt::Key_Right);
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  EXPECT_EQ(last(chosen), (Ids{"dropped", "target"}));
  EXPECT_TRUE(seen().contains(u"Clear"_s));
  button(u"Clear"_s)->click();
  EXPECT_EQ(last(chosen), Ids{});
  EXPECT_FALSE(seen().contains(u"Clear"_s));
}

TEST_F(ChipBarTest, TellsHowManyRowsThereAre) {
  struct {
    int shown, all;
    QString text;
  } const rows[] = {{1, 1, u"1 app"_s},
                    {23, 40, u"23 of 40"_s},
                    {1'000, 10'000, u"1,000 of 10,000"_s},
                    {0, 0, u"0 apps"_s}};
  for (const auto& row : rows) {
    bar.setCount(row.shown, row.all);
    EXPECT_EQ(seen().last(), row.text);
  }
}

TEST_F(ChipBarTest, IsCheckBoxesForThoseWhoDoNotSeeIt) {
  bar.setChosen({"lowest"});
  const auto* chip = QAccessible::queryAccessibleInterface(this->chip(u"At lowest"_s));
  ASSERT_NE(chip, nullptr);
  EXPECT_EQ(chip->role(), QAccessible::CheckBox);
  EXPECT_EQ(chip->text(QAccessible::Name), u"At lowest"_s);
  EXPECT_TRUE(chip->state().checked);
}

}  // namespace
}  // namespace quillet
