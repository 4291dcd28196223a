// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The board of My Apps: who stands where, and what can be done there by keys and clicks.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "desktop/lists/list_fixtures.h"
#include "desktop/sections/my_apps/my_apps_foot.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/my_apps/upgrade_result.h"
#include "desktop/sections/my_apps/upkeep_board.h"
#include "desktop/sections/my_apps/upkeep_share.h"
#include "library/cached_apps.h"
#include "library/library_folder.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

struct Given {
  std::int64_t id;
  const char* name;
  int monthsOld;  ///< -1: not known
  bool isIntel = false;
};

class UpkeepTest : public testing::Test {
 protected:
  UpkeepTest() {
    for (const Given& each : std::initializer_list<Given>{{1, "Anchor", 1},
                                                          {2, "Beacon – Notes for Sailors", 0},
                                                          {3, "Cinder: Fireplace", 8},
                                                          {4, "Dormouse", 30, true},
                                                          {5, "Ember", 40},
                                                          {6, "Foxglove", -1, true}})
      add(each);
    WatchedApp gone = watched(5);
    gone.isUnavailable = true;
    gone.lastCheckedAt = now() - 24h * 8;
    runTask(store->change(watchApps, std::vector{gone}));
    world.library.use(*store);
    make();
  }
  void TearDown() override { section.reset(); }

  Instant now() { return world.clock.now(); }

  void add(const Given& given) {
    OwnedApp app = owned(given.id, given.name);
    app.platformRaw = "mac";
    app.installedVersion = "1";
    app.storeVersion = "2";
    app.priceWhenAdded = 9.5;
    app.currency = given.id == 2 ? "EUR" : "USD";
    if (given.id == 3) app.priceWhenAdded.reset();
    if (given.id == 6) app.priceWhenAdded = 0;
    CachedApp record = cached(given.id, given.name);
    record.updatedAt = now();
    record.kind = "mac-software";
    record.primaryGenreName = "Utilities";
    record.minimumOsVersion = "14.0";
    record.needsRosetta = given.isIntel;
    if (given.monthsOld >= 0) record.currentVersionReleaseDate = now() - 24h * 31 * given.monthsOld;
    runTask(store->change(addOwnedApps, std::vector{app}));
    runTask(store->change(recordView, record, now()));
  }

  void make() {
    section = makeMyApps(parts());
    section->view()->resize(1060, 700);
    section->show({.section = SectionId::myApps});
    section->perform("show-upkeep");
    section->view()->show();
    settle();
  }
  ViewWorld parts() { return world.world(); }
  void settle() {
    for (int i = 0; i < 4; ++i) {
      runTask(store->read([](SQLite::Database&) { return 0; }));
      handlePendingEvents();
    }
  }
  std::vector<UpkeepList*> lists() {
    std::vector<UpkeepList*> found;
    for (UpkeepList* each : section->view()->findChildren<UpkeepList*>()) found.push_back(each);
    return found;
  }
  /// The cards of all columns, the chosen one in brackets.
  std::string board() {
    std::string text;
    for (UpkeepList* list : lists()) {
      text += list->accessibleName().toStdString() + ":";
      for (int i = 0; i < list->model()->rowCount(); ++i) {
        const QModelIndex card = list->model()->index(i, 0);
        const std::string name = card.data().toString().toStdString();
        text += list->selectionModel()->isSelected(card) ? " [" + name + "]" : " " + name;
      }
      text += "\n";
    }
    return text;
  }
  UpkeepList& list(std::size_t column) { return *lists().at(column); }
  void press(UpkeepList& in, Qt::Key key) {
    QTest::keyClick(&in, key);
    settle();
  }

  LibraryFolder folder;
  TestWorld world;
  std::unique_ptr<DataStore> store = folder.open();
  std::unique_ptr<Section> section;
};

TEST_F(UpkeepTest, EachAppStandsWhereItsReleaseTheBuildAndTheStoreSay) {
  EXPECT_EQ(board(),
            "Fine: Beacon [Anchor]\n"
            "Slowing down: Cinder\n"
            "Stale:\n"
            "Likely abandoned: Dormouse Ember\n"
            "Needs Rosetta: Dormouse Foxglove\n"
            "Gone from the store: Ember\n");
  EXPECT_EQ(section->view()->findChild<UpkeepShare*>()->text().toStdString(),
            "Fine 2, Slowing down 1, Stale 0, Likely abandoned 2, not known 1, Read from the last "
            "release alone · the oldest just now");
  EXPECT_EQ(list(5).model()->index(0, 0).data(Qt::AccessibleTextRole).toString().toStdString(),
            "Ember, $9.50, 2 available, Version 1 · No update in over 3 years, not sold on 12 Nov");
  // The chips and the text pick cards, too.
  section->setRowView({u"dormouse"_s, {}, {}});
  settle();
  EXPECT_EQ(board(),
            "Fine:\nSlowing down:\nStale:\nLikely abandoned: [Dormouse]\n"
            "Needs Rosetta: Dormouse\nGone from the store:\n");
}

TEST_F(UpkeepTest, ArrowsGoWithinAndBetweenColumns) {
  std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
  for (UpkeepList* each : lists())
    testers.push_back(std::make_unique<QAbstractItemModelTester>(each->model()));
  section->takeFocus();
  press(list(0), Qt::Key_Up);
  EXPECT_EQ(section->chosen(), (std::vector<AppKey>{{2, "us"}}));
  press(list(0), Qt::Key_Right);
  EXPECT_EQ(section->chosen(), (std::vector<AppKey>{{3, "us"}}));
  press(list(1), Qt::Key_Right);  // past the column without cards
  press(list(3), Qt::Key_Down);
  EXPECT_EQ(section->chosen(), (std::vector<AppKey>{{5, "us"}}));
  press(list(3), Qt::Key_Right);
  EXPECT_EQ(section->chosen(), (std::vector<AppKey>{{6, "us"}})) << "at the same height";
  press(list(4), Qt::Key_Left);
  EXPECT_EQ(section->chosen(), (std::vector<AppKey>{{5, "us"}}));
  QSignalSpy opened(section.get(), &Section::opens);
  press(list(3), Qt::Key_Return);
  ASSERT_EQ(opened.size(), 1);
  EXPECT_EQ(opened[0][0].value<RowKey>(), (RowKey{{5, "us"}}));
  // One that another program takes out goes from its columns, and another one is chosen.
  runTask(store->change(removeOwnedApps, std::vector<AppKey>{{5, "us"}}));
  settle();
  EXPECT_EQ(section->chosen().size(), 1U);
  EXPECT_EQ(list(5).model()->rowCount(), 0);
}

TEST_F(UpkeepTest, AReplacementIsASearchInTheCategory) {
  section->choose({{4, "us"}});
  settle();
  QSignalSpy goes(section.get(), &Section::goes);
  UpkeepList& abandoned = list(3);
  const QRect card = abandoned.visualRect(abandoned.model()->index(0, 0));
  EXPECT_GT(card.height(), abandoned.visualRect(abandoned.model()->index(1, 0)).height());
  QTest::mouseClick(abandoned.viewport(), Qt::LeftButton, {},
                    {card.center().x(), card.bottom() - 12});
  ASSERT_EQ(goes.size(), 1);
  const Place to = goes[0][0].value<Place>();
  EXPECT_EQ(to.section, SectionId::search);
  const SearchRequest& request = std::get<StoreQuery>(to.what).request;
  EXPECT_EQ(request.query, "Utilities");
  EXPECT_EQ(request.platform, Platform::mac);
  EXPECT_EQ(request.filters.genre, "Utilities");
  EXPECT_EQ(request.filters.purchases, PurchaseFilter::buyOutright);
}

TEST_F(UpkeepTest, NoReplacementIsOfferedWhereTheCategoryIsUnknown) {
  CachedApp record = cached(5, "Ember");
  record.updatedAt = now();
  record.kind = "mac-software";
  record.primaryGenreName = "";
  record.currentVersionReleaseDate = now() - 24h * 31 * 40;
  runTask(store->change(recordView, record, now()));
  section->choose({{5, "us"}});
  settle();
  UpkeepList& abandoned = list(3);
  EXPECT_FALSE(section->canDo("find-replacement"));
  EXPECT_EQ(abandoned.visualRect(abandoned.model()->index(1, 0)).height(),
            abandoned.visualRect(abandoned.model()->index(0, 0)).height());
}

TEST_F(UpkeepTest, TheLegendTakesAsManyLinesAsItNeeds) {
  auto* share = section->view()->findChild<UpkeepShare*>();
  const int one = share->heightForWidth(2000);
  section->view()->resize(300, 700);
  settle();
  EXPECT_GT(share->height(), one);
  EXPECT_EQ(share->height(), share->heightForWidth(share->width()));
}

TEST_F(UpkeepTest, AnUpdateIsSkippedUntilTheStoreHasALaterOne) {
  section->choose({{1, "us"}});
  ASSERT_TRUE(section->canDo("skip-version"));
  section->perform("skip-version");
  waitFor([&] { return section->canDo("unskip-version"); });
  EXPECT_FALSE(section->canDo("skip-version"));
  runTask(store->change(recordStoreVersions, std::vector{StoreVersion{{1, "us"}, "3", {}}}));
  waitFor([&] { return section->canDo("skip-version"); });
  world.parts.edits.undo();
  settle();
  const auto kept = runTask(store->read(ownedAppsOf, std::vector<AppKey>{{1, "us"}}));
  EXPECT_FALSE(kept.front().skippedVersion);
}

TEST_F(UpkeepTest, SaysWhatAnUpgradeStopsAndWhatWasPaid) {
  auto* system = section->view()->findChild<QComboBox*>();
  auto* result = section->view()->findChild<UpgradeResult*>();
  const auto said = [&](const char* version) {
    system->setCurrentText(QString::fromUtf8(version));
    return result->text().toStdString();
  };
  EXPECT_EQ(said("13"), "6 apps ask for a later one");
  EXPECT_EQ(said("15"), "none is known to stop");
  EXPECT_EQ(said("28"), "2 apps stop");
  const auto* foot = section->view()->findChild<MyAppsFoot*>();
  EXPECT_EQ(foot->findChildren<QLabel*>().front()->text(),
            u"Paid $28.50 and €9.50 for 4 apps, 1 unknown."_s);
  // The next run has it as it was.
  system->setCurrentText(u"26"_s);
  section.reset();
  make();
  EXPECT_EQ(section->view()->findChild<QComboBox*>()->currentText(), u"26"_s);
  EXPECT_TRUE(section->canDo("show-list"));
}

}  // namespace
}  // namespace quillet
