// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collections_section.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QWidget>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/lists/list_pane.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/collections/collection_head.h"
#include "desktop/sections/search_fixture.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

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

class CollectionPrices : public SearchTest {
 protected:
  CollectionPrices() {
    place.what = runTask(library->change(addCollection, AppCollection{.name = "Writing"}));
    std::vector<CollectionEntry> entries;
    for (int id = 1; id <= 60; ++id)
      entries.push_back({.trackId = id,
                         .country = "us",
                         .platformRaw = "mac",
                         .name = "App " + std::to_string(id),
                         .addedAt = clock.now() - std::chrono::hours(id)});
    runTask(library->change(addEntries, std::get<RowId>(place.what), entries));
    for (const int id : {1, 2, 3})
      http.apps.push_back({.trackId = id, .trackName = "App", .price = 1.99, .currency = "USD"});
    section->view()->resize(498, 600);
    section->show(place);
    settle();
  }
  void TearDown() override {
    section.reset();
    end();
    while (clock.advanceToNextDeadline()) handlePendingEvents();
  }

  void keep(const CachedApp& app) {
    runTask(library->change(keepCachedApps, std::vector{app}));
    section->refresh();
    settle();
  }
  /// Until the list rests, after the pause between two lookups.
  void look() {
    for (ListPane* pane : section->view()->findChildren<ListPane*>()) {
      if (!pane->isVisible()) continue;
      QSignalSpy seen(pane, &ListPane::seen);
      waitFor([&seen] { return !seen.isEmpty(); });
    }
    clock.advance(10s);
    settle();
  }
  void scrollTo(int row) {
    for (auto* list : section->view()->findChildren<AppListView*>()) {
      if (list->isVisible()) list->scrollTo(list->model()->index(row, 0));
    }
    look();
  }
  void comeBackAfter(std::chrono::hours time) {
    section->view()->hide();
    clock.advance(time);
    section->view()->show();
    look();
  }
  [[nodiscard]] long lookups() const { return http.asking("/lookup?"); }

  Place place{.section = SectionId::collections};
  std::unique_ptr<Section> section = makeCollections(parts.world());
};

TEST_F(CollectionPrices, AreAskedForOnceADayOfTheAppsThatAreSeen) {
  EXPECT_EQ(lookups(), 0) << "nobody looks";
  keep({.trackId = 4, .country = "us", .name = "App 4", .updatedAt = clock.now()});
  section->view()->show();
  look();
  ASSERT_EQ(lookups(), 1);
  EXPECT_NE(http.asked.back().find("=1,2,3,5,"), std::string::npos) << http.asked.back();
  EXPECT_EQ(http.asked.back().find("40"), std::string::npos) << http.asked.back();
  const auto* head = section->view()->findChild<CollectionHeadView*>();
  EXPECT_EQ(head->accessibleName(), u"Writing, 60 apps · $5.97 · 57 unknown"_s);
  waitFor([this] { return section->rows()->at(0).price.amount.has_value(); });

  scrollTo(59);
  EXPECT_EQ(lookups(), 2);
  EXPECT_NE(http.asked.back().find(",60&"), std::string::npos) << http.asked.back();
  scrollTo(0);
  comeBackAfter(std::chrono::hours(22));
  EXPECT_EQ(lookups(), 2) << "those that the store does not know neither";
  comeBackAfter(std::chrono::hours(2));
  EXPECT_EQ(lookups(), 3);
}

TEST_F(CollectionPrices, LeaveWhatIsKnownOfTheOtherBuild) {
  CachedApp mac{.trackId = 1, .country = "us", .name = "App 1", .kind = "mac-software"};
  mac.version = "7.0";
  keep(mac);
  section->view()->show();
  look();
  const auto kept = runTask(library->read(cachedAppsOf, std::vector<AppKey>{{1, "us"}, {2, "us"}}));
  ASSERT_EQ(kept.size(), 2U);
  EXPECT_EQ(kept[0].version, "7.0");
  EXPECT_EQ(kept[1].price, 1.99);
}

}  // namespace
}  // namespace quillet
