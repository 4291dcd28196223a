// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/history/history_section.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include "desktop/lists/list_fixtures.h"
#include "desktop/lists/list_strip.h"
#include "desktop/models/row_filter_model.h"
#include "library/cached_apps.h"
#include "library/library_folder.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

class HistorySectionTest : public testing::Test {
 protected:
  HistorySectionTest() {
    for (const int id : {1, 2, 3}) look(id, dayAndSecond(id));
    world.library.use(*store);
    section->view()->resize(498, 600);
    section->view()->setVisible(true);
    section->show({.section = SectionId::history});
    settle();
  }

  void look(std::int64_t id, Instant when) {
    runTask(store->change(recordView, cached(id, "App " + std::to_string(id)), when));
  }
  void settle() {
    for (int i = 0; i < 3; ++i) runTask(store->read([](SQLite::Database&) { return 0; }));
    handlePendingEvents();
  }
  std::string order() {
    std::string ids;
    for (int row = 0; row < section->rows()->rowCount(); ++row)
      ids += std::to_string(section->rows()->at(row).key.app.trackId);
    return ids;
  }

  LibraryFolder folder;
  TestWorld world;
  std::unique_ptr<DataStore> store = folder.open();
  std::unique_ptr<Section> section = makeHistory(world.world());
};

TEST_F(HistorySectionTest, RowsStayWhereTheyAreWhileSomebodyGoesThroughThem) {
  EXPECT_EQ(order(), "321");
  section->choose({{1, "us"}});
  look(1, dayAndSecond(8));
  look(4, dayAndSecond(9));
  waitFor([&] { return section->rows()->rowCount() == 4; });
  EXPECT_EQ(order(), "4321") << "one that is new is told";
  section->view()->setVisible(false);
  look(2, dayAndSecond(10));
  section->view()->setVisible(true);
  waitFor([&] { return order() == "2413"; });
  look(3, dayAndSecond(11));
  section->refresh();
  waitFor([&] { return order() == "3241"; });
}

TEST_F(HistorySectionTest, SaysThatItIsOffAndLeadsToTheSettings) {
  auto* strip = section->view()->findChild<ListStrip*>();
  EXPECT_TRUE(strip->isHidden());
  world.parts.settings.write({{"keepHistory", "false"}});
  settle();
  EXPECT_EQ(strip->accessibleName(), u"History is off."_s);
  EXPECT_EQ(order(), "321");
  QSignalSpy asked(section.get(), &Section::settingsAsked);
  QTest::mouseClick(strip->findChild<QPushButton*>(), Qt::LeftButton);
  EXPECT_EQ(asked.size(), 1);
  world.parts.settings.write({{"keepHistory", "true"}});
  settle();
  EXPECT_TRUE(strip->isHidden());
}

}  // namespace
}  // namespace quillet
