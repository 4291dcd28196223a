// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// A whole list over a real library: what it brings back, what it keeps through changes, what it
// asks for.

#include "desktop/lists/list_pane.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/chip_bar.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/lists/list_placeholder.h"
#include "desktop/lists/list_section.h"
#include "desktop/models/library_feed.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

constexpr int kRows = 200;
constexpr int kRowHeight = 64;
const std::string kPictures = "https://pictures.example/";

AppRow rowOf(const WatchedApp& app) {
  AppRow row = namedRow(app.trackId, QString::fromStdString(app.name));
  row.price.amount = app.targetPrice.value_or(0);
  row.marks.setFlag(RowMark::hasTarget, app.targetPrice.has_value());
  return row;
}

std::vector<AppRow> rowsOf(const std::vector<WatchedApp>& apps) {
  std::vector<AppRow> rows;
  for (const WatchedApp& app : apps) rows.push_back(rowOf(app));
  return rows;
}

RowSource watchedSource() {
  return {.all = [](auto& database) { return rowsOf(watchedApps(database)); },
          .ofApps = [](auto& database,
                       const auto& apps) { return rowsOf(watchedAppsOf(database, apps)); },
          .touched = [](const LibraryChanges& changes) { return changes.watchedApps; }};
}

AppKey app(std::int64_t id) { return {id, "us"}; }
RowKey key(std::int64_t id) { return {app(id)}; }

WatchedApp numbered(std::int64_t id) {
  WatchedApp made = watched(id);
  made.name = numberedRow(id).name.toStdString();
  return made;
}

/// Those of an arithmetic progression.
std::vector<WatchedApp> numbered(std::int64_t first, std::int64_t last, std::int64_t step = 1) {
  std::vector<WatchedApp> apps;
  for (auto id = first; id <= last; id += step) apps.push_back(numbered(id));
  return apps;
}
std::vector<AppKey> keys(std::int64_t first, std::int64_t last, std::int64_t step = 1) {
  std::vector<AppKey> all;
  for (auto id = first; id <= last; id += step) all.push_back(app(id));
  return all;
}

class ListPaneTest : public testing::Test {
 protected:
  ListPaneTest() {
    make(u"Watchlist"_s);
    // Only every tenth number, so that others come between them.
    change(watchApps, numbered(10, std::int64_t{10} * kRows, 10));
  }

  void make(const QString& name, const RowLayout& layout = {}) {
    auto made = std::make_unique<LibraryFeed>(world.library, world.clock);
    feed = made.get();
    pane = std::make_unique<ListPane>(name, testTable(layout), std::move(made), world.world());
    pane->resize(498, 600);
    pane->setVisible(true);
  }

  template <typename... Arguments>
  void change(Arguments... arguments) {
    runTask(store->change(arguments...));
    settle();
  }
  /// What was asked of the library before came.
  void settle() {
    runTask(store->read([](SQLite::Database&) { return 0; }));
  }
  void open() {
    world.library.use(*store);
    settle();  // whoever waited for the library has asked now
    settle();
  }
  void show(const Place& place, RowSource source = watchedSource()) {
    feed->show(std::move(source));
    pane->expect(place);
  }
  void fill(const Place& place = {}) {
    show(place);
    world.library.isOpen() ? settle() : open();
  }
  AppListView& view() { return *pane->findChild<AppListView*>(); }
  ListPlaceholder& placeholder() { return *pane->findChild<ListPlaceholder*>(); }
  int count() { return pane->rows().rowCount(); }
  void press(Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&view(), pressed, modifiers);
  }

  LibraryFolder folder;
  TestWorld world;
  std::unique_ptr<DataStore> store = folder.open();
  LibraryFeed* feed = nullptr;  // the pane's
  std::unique_ptr<ListPane> pane;
};

TEST_F(ListPaneTest, ChoosesTheFirstRowOnceItIsThereAndSaysSo) {
  QSignalSpy changed(pane.get(), &ListPane::changed);
  show({});
  EXPECT_EQ(placeholder().kind(), ListPlaceholder::Kind::loading);
  EXPECT_FALSE(pane->current());
  open();
  waitFor([&] { return !changed.isEmpty(); });
  EXPECT_EQ(pane->current(), key(10));
  EXPECT_EQ(pane->chosen(), std::vector{app(10)});
  EXPECT_TRUE(placeholder().isHidden());
  EXPECT_FALSE(view().hasFocus());
  handlePendingEvents();
  EXPECT_EQ(changed.count(), 1);
}

TEST_F(ListPaneTest, BringsBackViewRowAndScrollAndTellsNobody) {
  Place place;
  place.rows = {u"app 1"_s, {}, "name"};
  place.chosen = key(1500);
  place.anchor = {key(1450), 12};
  QSignalSpy changed(pane.get(), &ListPane::changed);
  fill(place);
  EXPECT_EQ(pane->rowView(), place.rows);
  EXPECT_EQ(pane->current(), place.chosen);
  EXPECT_EQ(pane->anchor(), place.anchor);
  // Elsewhere in the same list, and back.
  pane->choose(key(1900));
  pane->setRowView({});
  EXPECT_NE(pane->anchor(), place.anchor);
  handlePendingEvents();
  changed.clear();
  pane->bringBack(place);
  EXPECT_EQ(pane->rowView(), place.rows);
  EXPECT_EQ(pane->current(), place.chosen);
  EXPECT_EQ(pane->anchor(), place.anchor);
  waitFor([&, rested = QSignalSpy(&view(), &AppListView::rested)] { return !rested.isEmpty(); });
  EXPECT_TRUE(changed.isEmpty());
}

TEST_F(ListPaneTest, ForgetsNothingOfAPlaceThatIsLeftBeforeItsRowsCame) {
  Place place;
  place.chosen = key(1500);
  place.anchor = {key(1450), 12};
  QSignalSpy changed(pane.get(), &ListPane::changed);
  show(place);
  pane->setRowView({u"app 1"_s, {}, {}});
  EXPECT_EQ(changed.count(), 1);
  place.rows.text = u"app 1"_s;
  EXPECT_EQ(pane->keptIn({}), place);
  open();
  EXPECT_EQ(pane->keptIn({}), place);
}

TEST_F(ListPaneTest, FollowsItsLibraryOnlyWhileItIsSeen) {
  fill();
  pane->setVisible(false);
  change(watchApps, numbered(1, 3));
  EXPECT_EQ(count(), kRows);
  pane->setVisible(true);
  // One that came meanwhile, as an alert does whose notification was clicked.
  Place place;
  place.chosen = key(2);
  pane->bringBack(place);
  settle();
  EXPECT_EQ(count(), kRows + 3);
  EXPECT_EQ(pane->current(), key(2));
}

TEST_F(ListPaneTest, WithoutTheRowOfAPlaceChoosesOneThatIsSeenThere) {
  Place place;
  place.chosen = key(1505);
  place.anchor = {key(1450), 12};
  QSignalSpy changed(pane.get(), &ListPane::changed);
  fill(place);
  EXPECT_EQ(pane->current(), key(1450));
  EXPECT_EQ(pane->anchor(), place.anchor);
  waitFor([&] { return !changed.isEmpty(); });
}

TEST_F(ListPaneTest, KeepsWhatIsLookedAtInItsPlaceThroughChanges) {
  Place place;
  place.chosen = key(1020);
  place.anchor = {key(1000), 12};
  fill(place);
  struct {
    const char* name;
    std::function<void()> change;
  } const rows[] = {
      {"rows come above", [&] { change(watchApps, numbered(1, 999, 7)); }},
      {"and below", [&] { change(watchApps, numbered(1101, 1999, 7)); }},
      {"rows go above, scattered", [&] { change(unwatchApps, keys(10, 990, 30)); }},
      {"rows go below", [&] { change(unwatchApps, keys(1300, 1990, 20)); }},
      {"one goes that is seen", [&] { change(unwatchApps, std::vector{app(1060)}); }},
      {"one comes that is seen", [&] { change(watchApps, numbered(1055, 1055)); }},
      {"one changes that is seen",
       [&] { change(editWatches, std::vector{WatchEdit{app(1010), {.targetPrice = 3}}}); }},
      {"all are read again",
       [&] {
         pane->refresh();
         settle();
       }},
  };
  for (const auto& row : rows) {
    row.change();
    EXPECT_EQ(pane->anchor(), place.anchor) << row.name;
    EXPECT_EQ(pane->chosen(), std::vector{app(1020)}) << row.name;
  }
}

TEST_F(ListPaneTest, RowsThatMoveStayChosenAndTheOthersWhereTheyAre) {
  std::vector<WatchEdit> edits;
  for (int id = 10; id <= 10 * kRows; id += 10) edits.push_back({app(id), {.targetPrice = id}});
  change(editWatches, edits);
  Place place;
  place.rows.sort = "price";
  place.chosen = key(1020);
  place.anchor = {key(1000), 12};
  fill(place);
  // The first that is seen, too: then the second is where it was.
  for (const int moved : {1020, 1000}) {
    change(editWatches, std::vector{WatchEdit{app(moved), {.targetPrice = 15}}});
    EXPECT_EQ(pane->rows().find(key(moved)), 1) << moved;
    EXPECT_EQ(pane->chosen(), std::vector{app(1020)});
    const int top = view().visualRect(pane->rows().index(pane->rows().find(key(1010)), 0)).top();
    EXPECT_EQ(top, kRowHeight - 12) << moved;
  }
}

TEST_F(ListPaneTest, AtItsBeginningShowsWhatIsNew) {
  fill();
  change(watchApps, numbered(1, 1));
  EXPECT_EQ(pane->anchor(), (RowAnchor{key(1), 0}));
  EXPECT_EQ(pane->current(), key(10));
}

TEST_F(ListPaneTest, InThePlaceOfARowThatIsGoneChoosesTheNearest) {
  Place place;
  place.chosen = key(1990);
  fill(place);
  QSignalSpy changed(pane.get(), &ListPane::changed);
  const auto gone = [&](const std::vector<AppKey>& apps) {
    change(unwatchApps, apps);
    view().grab();
    const int hidden = view().verticalScrollBar()->maximum();
    EXPECT_EQ(hidden, std::max(0, count() * kRowHeight - view().viewport()->height()));
    return pane->current();
  };
  EXPECT_EQ(gone({app(1990)}), key(2000));
  EXPECT_EQ(gone({app(2000)}), key(1980));
  // With its neighbours, in several pieces.
  EXPECT_EQ(gone({app(1980), app(1970), app(1950)}), key(1960));
  pane->choose(key(500));
  EXPECT_EQ(gone({app(500), app(510), app(530), app(490)}), key(520));
  // One that is not chosen changes nothing.
  EXPECT_EQ(gone({app(20)}), key(520));
  // Of several the others stay.
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(pane->chosen(), (std::vector{app(520), app(540)}));
  gone({app(540)});
  EXPECT_EQ(pane->chosen(), std::vector{app(520)});
  waitFor([&] { return !changed.isEmpty(); });
  EXPECT_EQ(gone(keys(10, 2000, 10)), std::nullopt);
  EXPECT_EQ(placeholder().kind(), ListPlaceholder::Kind::empty);
  EXPECT_FALSE(placeholder().isHidden());
  EXPECT_TRUE(pane->findChild<ChipBar*>()->isHidden());
}

TEST_F(ListPaneTest, TellsWhatAViewLeavesAndClearsIt) {
  fill();
  change(editWatches, std::vector{WatchEdit{app(50), {.targetPrice = 3}}});
  QSignalSpy changed(pane.get(), &ListPane::changed);
  pane->setRowView({{}, {"target", "unknown"}, {}});
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(pane->current(), key(50));
  waitFor([&] { return !changed.isEmpty(); });
  pane->setRowView({u"nothing like it"_s, {}, "price"});
  EXPECT_EQ(placeholder().kind(), ListPlaceholder::Kind::noMatch);
  EXPECT_FALSE(pane->findChild<ChipBar*>()->isHidden());
  EXPECT_EQ(pane->current(), std::nullopt);
  placeholder().findChild<QPushButton*>()->click();
  EXPECT_EQ(pane->rowView(), (RowView{{}, {}, "price"}));
  EXPECT_EQ(count(), kRows);
  EXPECT_TRUE(pane->current());
}

TEST_F(ListPaneTest, IsMovedInByKeys) {
  fill();
  QSignalSpy opened(pane.get(), &ListPane::opened);
  QSignalSpy menu(pane.get(), &ListPane::menuAsked);
  QTest::keyClicks(&view(), u"App 12"_s);
  EXPECT_EQ(pane->current(), key(1200));
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  ASSERT_EQ(opened.count(), 1);
  EXPECT_EQ(opened[0][0].value<RowKey>(), key(1210));
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
  QCoreApplication::sendEvent(view().viewport(), &asked);
  ASSERT_EQ(menu.count(), 1);
  const QRect row = view().visualRect(view().currentIndex());
  EXPECT_TRUE(row.contains(view().viewport()->mapFromGlobal(menu[0][0].toPoint())));
}

TEST_F(ListPaneTest, ScrollsByARowANotch) {
  fill();
  const QPointF middle = view().viewport()->rect().center();
  QWheelEvent notch(middle, view().viewport()->mapToGlobal(middle), {}, QPoint(0, -120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(view().viewport(), &notch);
  const RowAnchor now = pane->anchor();
  EXPECT_NEAR(pane->rows().find(now.first) * kRowHeight + now.offset, kRowHeight, 4);
  // And tells so, once it rests.
  QSignalSpy changed(pane.get(), &ListPane::changed);
  waitFor([&] { return !changed.isEmpty(); });
}

TEST_F(ListPaneTest, AsksForPicturesOfWhatIsSeenFirst) {
  constexpr int kAtOnce = 6;
  const auto url = [](int id) { return kPictures + std::to_string(id) + "/64x64bb.png"; };
  for (int id = 10; id <= 10 * kRows; id += 10) world.http.hold(url(id));
  Place place;
  place.anchor = {key(1000), 0};
  RowSource pictured = watchedSource();
  pictured.all = [](auto& database) {
    std::vector<AppRow> rows = rowsOf(watchedApps(database));
    for (AppRow& row : rows)
      row.artwork = kPictures + std::to_string(row.key.app.trackId) + "/100x100bb.png";
    return rows;
  };
  show(place, pictured);
  open();
  waitFor([&] { return world.http.requests().size() >= kAtOnce; });
  // They look on the disk first, each in its own time.
  std::set<std::string> asked;
  for (const HttpRequest& request : world.http.requests()) asked.insert(request.url);
  std::set<std::string> seen;
  for (int i = 0; i < kAtOnce; ++i) seen.insert(url(1000 + 10 * i));
  EXPECT_EQ(asked, seen);
  pane->setVisible(false);
  waitFor([&] { return world.parts.images.isIdle(); });
}

TEST_F(ListPaneTest, MayGoBeforeItsAnswerComes) {
  show({});
  world.library.use(*store);
  pane.reset();
  settle();
  handlePendingEvents();
}

TEST_F(ListPaneTest, KeepsTheFocusWhileItsRowsAreAway) {
  fill();
  pane->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(pane.get()));
  pane->takeFocus();
  EXPECT_TRUE(view().hasFocus());
  show({});
  EXPECT_TRUE(view().isHidden());
  settle();
  EXPECT_TRUE(view().hasFocus());
  pane->setRowView({u"nothing like it"_s, {}, {}});
  placeholder().findChild<QPushButton*>()->click();
  EXPECT_TRUE(view().hasFocus());
}

TEST_F(ListPaneTest, ChoosesTheFirstOfAListThatWasEmpty) {
  change(unwatchApps, keys(10, 2000, 10));
  fill();
  EXPECT_EQ(pane->current(), std::nullopt);
  change(watchApps, numbered(1, 3));
  EXPECT_EQ(pane->current(), key(1));
}

TEST_F(ListPaneTest, ADayIsAHeadingAndNoRow) {
  make(u"History"_s, {.hasDays = true});
  const auto withDay = [](auto& database) {
    auto rows = rowsOf(watchedApps(database));
    for (AppRow& row : rows) row.day = row.key.app.trackId < 30 ? u"Today"_s : u"Yesterday"_s;
    return rows;
  };
  show({}, {.all = withDay});
  open();
  EXPECT_EQ(view().visualRect(pane->rows().index(0, 0)).height(), kRowHeight + 28);
  EXPECT_EQ(view().visualRect(pane->rows().index(1, 0)).height(), kRowHeight);
  const QRect yesterday = view().visualRect(pane->rows().index(2, 0));
  const auto click = [&](int y) {
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, {100, y});
    return pane->chosen();
  };
  EXPECT_EQ(click(yesterday.top() + 40), std::vector{app(30)});
  EXPECT_EQ(click(10), std::vector{app(30)});
  EXPECT_EQ(click(40), std::vector{app(10)});
}

TEST_F(ListPaneTest, ASectionReadsItsSubjectOnceAndAgainWhenAsked) {
  int reads = 0;
  ListSection section({.id = SectionId::watchlist,
                       .title = "Watchlist",
                       .findText = "Find in Watchlist",
                       .table = testTable(),
                       .source =
                           [&](const Place&, const ViewWorld&) {
                             ++reads;
                             return watchedSource();
                           }},
                      world.world());
  section.view()->resize(498, 600);
  Place place;
  place.page = PageSpan::alone;
  section.show(place);
  open();
  EXPECT_EQ(section.chosen(), std::vector{app(10)});
  place.chosen = key(20);
  place.rows.sort = "price";
  section.show(place);
  EXPECT_EQ(reads, 1);
  Place now = section.place();
  now.anchor = {};
  EXPECT_EQ(now, place);
  section.refresh();
  EXPECT_EQ(reads, 2);
  // Rows that say "Today" are another day's by now.
  world.clock.setNow(world.clock.now() + std::chrono::hours(24));
  section.show(place);
  EXPECT_EQ(reads, 3);
  settle();
  EXPECT_EQ(section.chosen(), std::vector{app(20)});
}

}  // namespace
}  // namespace quillet
