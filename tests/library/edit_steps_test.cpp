// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/edit_steps.h"

#include <SQLiteCpp/Statement.h>
#include <gtest/gtest.h>

#include <string>

#include "library/cached_apps.h"
#include "library/collection_steps.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/saved_searches.h"

namespace quillet {
namespace {

AlertRecord alert(int day) {
  return {.trackId = 1, .country = "us", .kindRaw = "priceDrop", .date = dayAndSecond(day)};
}

/// All that a step may touch, as text: each row with its key.
std::string contents(SQLite::Database& database) {
  std::string text;
  for (const char* table : {"ZWATCHEDAPP", "ZOWNEDAPP", "ZAPPCOLLECTION", "ZCOLLECTIONENTRY",
                            "ZSAVEDSEARCH", "ZALERTRECORD", "ZCACHEDAPP"}) {
    SQLite::Statement rows(database, std::string("SELECT * FROM ") + table + " ORDER BY Z_PK");
    while (rows.executeStep()) {
      for (int i = 0; i < rows.getColumnCount(); ++i) text += rows.getColumn(i).getString() + "|";
      text += "\n";
    }
  }
  return text;
}

/// Something for a list that is there, for one that is not, and what is watched already.
std::shared_ptr<const LibraryExport> shelf() {
  const WatchedItem present{1, "us", "mac", "", 0, {}, true, true, true, dayAndSecond(4)};
  WatchedItem added = present;
  added.trackId = 8;
  const EntryItem item{8, "us", "mac", "", "", dayAndSecond(4)};
  return std::make_shared<const LibraryExport>(
      LibraryExport{{},
                    {present, added},
                    {{"Writing", "book", {item}}, {"New", "book", {item}}, {"Bare", "", {}}}});
}

/// Tells all that it is given.
std::string copyName(const std::string& name, const std::vector<std::string>& taken) {
  std::string all = "Copy of " + name + " beside";
  for (const std::string& each : taken) all += ' ' + each;
  return all;
}

class EditStepsTest : public MemoryLibraryTest {
 protected:
  EditStepsTest() {
    watchApps(transaction_, {watched(1), watched(2)});
    OwnedApp outdated = owned(1);
    outdated.storeVersion = "2";
    addOwnedApps(transaction_, {outdated});
    writing_ = addCollection(transaction_, {0, "Writing", "pencil", {}});
    entries_ = addEntries(transaction_, writing_, {entry(1, "why"), entry(2)});
    later_ = addCollection(transaction_, {0, "Later", "clock", {}});
    addEntries(transaction_, later_, {entry(1), entry(3, "soon")});
    search_ = addSavedSearch(transaction_, {.name = "Notes", .query = "notes"});
    alerts_ = addAlerts(transaction_, {alert(1), alert(2)});
    setAlertsRead(transaction_, {alerts_[1]}, ReadState::read);
    recordView(transaction_, cached(1), dayAndSecond(3));
  }

  RowId writing_ = 0;
  RowId later_ = 0;
  std::vector<RowId> entries_;
  RowId search_ = 0;
  std::vector<RowId> alerts_;
};

TEST_F(EditStepsTest, EachIsUndoneAndDoneAgainToTheLastRow) {
  WatchOptions options{.alertOnFree = true, .targetPrice = 2.5};
  const struct {
    const char* name;
    EditStep step;
  } rows[] = {
      {"watch", watching({watched(2), watched(3)})},
      {"stop watching", unwatching({{1, "us"}, {99, "us"}})},
      {"options", settingWatches({{{1, "us"}, options}, {{2, "us"}, options}})},
      {"own", owning({owned(1), owned(5)})},
      {"disown", disowning({{1, "us"}})},
      {"price paid", settingOwned({{{1, "us"}, {1.5, "EUR", {}, {}}}})},
      {"skip an update", skippingUpdates({{1, "us"}, {9, "us"}}, SkipUpdates::skip)},
      {"new collection", addingCollection({0, "Later", "clock", {}}, {entry(1), entry(9)})},
      {"rename", settingCollection({writing_, "Words", "book", {}})},
      {"delete a collection", removingCollections({writing_})},
      {"add to it", addingEntries(writing_, {entry(2), entry(3)})},
      {"take out", removingEntries({entries_[0]})},
      {"take an app out", removingFrom(writing_, {{1, "us"}, {9, "us"}})},
      {"note", settingNote(entries_[1], "because")},
      {"note on an app", noting(writing_, {1, "us"}, "because")},
      {"duplicate", duplicatingCollection(writing_, dayAndSecond(9), copyName)},
      {"move to another", movingEntries(writing_, later_, {{1, "us"}, {2, "us"}, {9, "us"}})},
      {"save a search", addingSearch({.name = "Mail", .query = "mail"})},
      {"change it", settingSearch({.id = search_, .name = "Other", .query = "notes"})},
      {"rename it", renamingSearch(search_, "Jotted")},
      {"delete it", removingSearches({search_})},
      {"read", markingAlerts(alerts_, ReadState::read)},
      {"unread", markingAlerts(alerts_, ReadState::unread)},
      {"read all", markingAllAlertsRead()},
      {"remove an alert", removingAlerts({alerts_[0]})},
      {"forget a view", forgettingViews({{1, "us"}})},
      {"forget all", forgettingAllViews()},
      {"import", importing(shelf(), dayAndSecond(9), [](const ImportCounts&) {})},
      {"move", together({removingEntries({entries_[0]}),
                         addingCollection({0, "Moved", "box", {}}, {entry(1, "why")})})},
  };
  const std::string before = contents(database_);
  for (const auto& [name, step] : rows) {
    SCOPED_TRACE(name);
    EditStep undo = step.run(transaction_);
    ASSERT_TRUE(undo);
    const std::string after = contents(database_);
    EXPECT_NE(after, before);
    EditStep redo = undo.run(transaction_);
    ASSERT_EQ(contents(database_), before);
    ASSERT_TRUE(redo);
    EditStep undoAgain = redo.run(transaction_);
    EXPECT_EQ(contents(database_), after);
    ASSERT_TRUE(undoAgain);
    undoAgain.run(transaction_);
    ASSERT_EQ(contents(database_), before);
  }
}

TEST_F(EditStepsTest, OneThatFindsNothingToChangeCannotBeUndone) {
  for (const EditStep& step :
       {watching({watched(1)}), unwatching({{9, "us"}}), settingWatches({{{9, "us"}, {}}}),
        owning({owned(1)}), skippingUpdates({{1, "us"}}, SkipUpdates::heed),
        removingCollections({99}), addingEntries(writing_, {entry(1)}),
        noting(writing_, {9, "us"}, "x"), duplicatingCollection(99, {}, copyName),
        movingEntries(writing_, writing_, {{1, "us"}}), settingNote(99, "x"),
        settingNote(entries_[0], "why"), markingAlerts({alerts_[1]}, ReadState::read),
        together({removingSearches({99})}),
        importing(std::make_shared<const LibraryExport>(
                      LibraryExport{{}, {shelf()->watchlist[0]}, {{"Writing", "", {}}}}),
                  {}, [](const ImportCounts& counts) { EXPECT_EQ(counts.alreadyPresent, 1U); })})
    EXPECT_FALSE(step.run(transaction_));
}

TEST_F(EditStepsTest, CopiesAndMovesTakeNotesAlongInTheSameOrder) {
  const auto told = [&](RowId collection) {
    std::string text;
    for (const CollectionEntry& each : entriesOf(database_, collection))
      text += std::to_string(each.trackId) + each.note + ' ';
    return text;
  };
  ASSERT_EQ(told(writing_), "2 1why ");
  ASSERT_TRUE(duplicatingCollection(writing_, {}, copyName).run(transaction_));
  EXPECT_EQ(collections(database_).front().name, "Copy of Writing beside Later Writing");
  EXPECT_EQ(told(collections(database_).front().id), "2 1why ");
  // The entry that is there already gets the note; what has one keeps it.
  addEntries(transaction_, writing_, {entry(3, "never")});
  ASSERT_TRUE(movingEntries(writing_, later_, {{1, "us"}, {2, "us"}, {3, "us"}}).run(transaction_));
  EXPECT_EQ(told(writing_), "");
  EXPECT_EQ(told(later_), "3soon 2 1why ");
}

TEST_F(EditStepsTest, UndoneOptionsLeaveThePriceThatTheMonitorWroteSince) {
  const EditStep undo = settingWatches({{{1, "us"}, {.targetPrice = 2.5}}}).run(transaction_);
  database_.exec("UPDATE ZWATCHEDAPP SET ZCURRENTPRICE = 1.25 WHERE ZTRACKID = 1");
  ASSERT_TRUE(undo.run(transaction_));
  const std::vector<WatchedApp> rows = watchedAppsOf(database_, {{1, "us"}});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].currentPrice, 1.25);
  EXPECT_FALSE(rows[0].targetPrice);
}

TEST_F(EditStepsTest, ATargetThatComesBackKeepsItsCurrencyThoughTheStorefrontHasAnother) {
  database_.exec("UPDATE ZWATCHEDAPP SET ZCURRENCY = 'USD'");
  settingWatches({{{1, "us"}, {.targetPrice = 2.5}}}).run(transaction_);
  const EditStep undo = settingWatches({{{1, "us"}, {.targetPrice = 3}}}).run(transaction_);
  database_.exec("UPDATE ZWATCHEDAPP SET ZCURRENCY = 'EUR', ZTARGETCURRENCY = 'USD'");
  const EditStep redo = undo.run(transaction_);
  EXPECT_EQ(watchedAppsOf(database_, {{1, "us"}}).at(0).targetPrice, 2.5);
  EXPECT_EQ(watchedAppsOf(database_, {{1, "us"}}).at(0).targetCurrency, "USD");
  redo.run(transaction_);
  EXPECT_EQ(watchedAppsOf(database_, {{1, "us"}}).at(0).targetCurrency, "USD");
}

}  // namespace
}  // namespace quillet
