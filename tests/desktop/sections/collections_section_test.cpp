// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collections_section.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QWidget>

#include "desktop/lists/list_fixtures.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/collections/collection_head.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

class CollectionsSectionTest : public testing::Test {
 protected:
  CollectionsSectionTest() {
    writing = runTask(store->change(addCollection, AppCollection{.name = "Writing"}));
    for (const int id : {1, 2, 3}) {
      CollectionEntry entry{.trackId = id, .country = "us", .name = "App " + std::to_string(id)};
      runTask(store->change(addEntries, writing, std::vector{entry}));
    }
    world.library.use(*store);
    section->view()->resize(498, 600);
    section->view()->setVisible(true);
  }

  void settle() {
    for (int i = 0; i < 3; ++i) runTask(store->read([](SQLite::Database&) { return 0; }));
  }
  void visit(const Place& place) {
    section->show(place);
    settle();
  }
  [[nodiscard]] Place inside(std::optional<RowKey> chosen = {}) const {
    return {.section = SectionId::collections, .what = writing, .chosen = std::move(chosen)};
  }
  int shown() { return section->rows()->rowCount(); }

  LibraryFolder folder;
  TestWorld world;
  std::unique_ptr<DataStore> store = folder.open();
  RowId writing = 0;
  std::unique_ptr<Section> section = makeCollections(world.world());
};

TEST_F(CollectionsSectionTest, ShowsWhatItHoldsAtOnceWhenItIsComeBackTo) {
  const Place overview{.section = SectionId::collections};
  visit(overview);
  EXPECT_EQ(shown(), 1);
  visit(inside(RowKey{{2, "us"}}));
  EXPECT_EQ(shown(), 3);
  // Without a reading: the page beside it stays where it is.
  section->show(overview);
  EXPECT_EQ(shown(), 1);
  section->show(inside(RowKey{{3, "us"}}));
  EXPECT_EQ(shown(), 3);
  EXPECT_EQ(section->place().chosen, (RowKey{{3, "us"}}));
}

TEST_F(CollectionsSectionTest, AnOverviewTakesThePlaceOfACollectionThatIsGone) {
  visit(inside());
  const auto* head = section->view()->findChild<CollectionHeadView*>();
  EXPECT_EQ(head->accessibleName(), u"Writing, 3 apps · 3 unknown"_s);
  QSignalSpy changed(section.get(), &Section::placeChanged);
  QSignalSpy goes(section.get(), &Section::goes);
  runTask(store->change(removeCollections, std::vector{writing}));
  settle();
  EXPECT_FALSE(changed.isEmpty());
  EXPECT_TRUE(goes.isEmpty());  // or back would lead to it, and from there here again
  EXPECT_TRUE(std::holds_alternative<std::monostate>(section->place().what));
  EXPECT_EQ(shown(), 0);
}

}  // namespace
}  // namespace quillet
