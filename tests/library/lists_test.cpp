// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/saved_searches.h"
#include "library/storefront_check.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using Lists = MemoryLibraryTest;

AlertRecord alert(int day) {
  return {.trackId = 1, .country = "us", .kindRaw = "priceDrop", .date = dayAndSecond(day)};
}

TEST_F(Lists, AnEditIsUndoneByWhatItReturnsAndLeavesChecksAlone) {
  watchApps(transaction_, {watched(1), watched(1, "de")});
  takeChanges();
  const WatchOptions wanted{true, false, true, false, 1.99, dayAndSecond(9)};
  const auto undo = editWatches(transaction_, {{{1, "de"}, wanted}, {{7, "us"}, wanted}});
  EXPECT_EQ(undo, (std::vector<WatchEdit>{{{1, "de"}, {}}}))
      << "what is not watched is passed over";
  recordStorefrontCheck(transaction_, {.country = "de", .when = dayAndSecond(3), .asked = {1}});
  EXPECT_EQ(editWatches(transaction_, undo), (std::vector<WatchEdit>{{{1, "de"}, wanted}}));

  WatchedApp expected = watched(1, "de");
  expected.id = 2;
  expected.lastCheckedAt = dayAndSecond(3);
  expected.isUnavailable = true;
  EXPECT_EQ(watchedAppsOf(database_, {{1, "de"}}), std::vector{expected});
  EXPECT_EQ(takeChanges().watchedApps, (std::set<AppKey>{{1, "de"}}));
}

TEST_F(Lists, AScanAddsAndUpdatesButNeverRemoves) {
  OwnedApp paid = owned(1);
  paid.priceWhenAdded = 9.99;
  paid.skippedVersion = "3.0";
  OwnedApp manual = owned(2, "ampersand");
  manual.sourceRaw = "manual";
  addOwnedApps(transaction_, {paid, manual});
  OwnedApp found = owned(1, "Renamed by the scan");
  paid.installedVersion = found.installedVersion = "2.0";
  paid.installedSizeBytes = found.installedSizeBytes = 5'000'000'000;
  OwnedApp copy = found;
  copy.trackId = manual.trackId;
  EXPECT_EQ(recordScan(transaction_, {found, copy, owned(3)}), (std::vector<AppKey>{{3, "us"}}));
  recordStoreVersions(transaction_, {{{1, "us"}, "2.1", {}, false, dayAndSecond(9)},
                                     {{9, "us"}, "1", {}, false, dayAndSecond(9)}});

  paid.id = 1;
  paid.storeVersion = "2.1";
  paid.isUnavailable = false;
  paid.lastCheckedAt = dayAndSecond(9);
  manual.id = 2;
  const auto rows = ownedApps(database_);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0], manual);
  EXPECT_EQ(rows[1], paid);
  const auto undo = editOwnedApps(transaction_, {{{1, "us"}, {1.0, "EUR", "https://x", {}}}});
  EXPECT_EQ(undo, (std::vector<OwnedEdit>{{{1, "us"}, {9.99, {}, {}, "3.0"}}}));
}

TEST_F(Lists, CopiesAreNotedOfScannedAppsOfTheirBuildInEveryStorefront) {
  OwnedApp here = owned(1);
  here.platformRaw = "mac";
  here.bundleId = "com.Example.one";
  here.installedSizeBytes = 5;
  OwnedApp there = here;
  there.country = "de";
  OwnedApp phone = here;
  phone.trackId = 2;
  phone.platformRaw = "iphone";
  OwnedApp manual = here;
  manual.trackId = 3;
  manual.sourceRaw = "manual";
  addOwnedApps(transaction_, {here, there, phone, manual});
  takeChanges();
  const InstalledCopy copy{"com.example.ONE", {}, Platform::mac, "7", "/disk/One.app", {}, {},
                           dayAndSecond(9)};
  const InstalledCopy wrapped{"com.other", 2, Platform::iphone, "8", {}, 6, {}, dayAndSecond(9)};
  const InstalledCopy unknown{"com.unknown", {}, Platform::mac, "9", {}, {}, {}, dayAndSecond(9)};
  EXPECT_EQ(recordCopies(transaction_, {copy, wrapped, unknown}),
            (std::vector<std::vector<AppKey>>{{{1, "us"}, {1, "de"}, {3, "us"}}, {{2, "us"}}, {}}));
  for (OwnedApp* each : {&here, &there}) {
    each->installedVersion = "7";
    each->installedPath = "/disk/One.app";
    each->lastScannedAt = dayAndSecond(9);
  }
  here.id = 1;
  there.id = 2;
  EXPECT_EQ(ownedAppsOf(database_, {{1, "us"}, {1, "de"}}), (std::vector{here, there}));
  EXPECT_EQ(ownedAppsOf(database_, {{2, "us"}}).at(0).installedSizeBytes, 6);
  EXPECT_EQ(ownedAppsOf(database_, {{3, "us"}}).at(0).installedVersion, manual.installedVersion);
  EXPECT_EQ(takeChanges().ownedApps, (std::set<AppKey>{{1, "us"}, {1, "de"}, {2, "us"}}));
}

TEST_F(Lists, ACollectionHoldsEachAppOnceAndComesBackWhole) {
  const RowId writing = addCollection(transaction_, {0, "Writing", "pencil", {}});
  const RowId empty = addCollection(transaction_, {0, "empty", "folder", {}});
  EXPECT_EQ(addEntries(transaction_, writing, {entry(1), entry(2, "why")}).size(), 2U);
  const auto again = addEntries(transaction_, writing, {entry(2), entry(3)});
  ASSERT_EQ(again.size(), 1U);
  addEntries(transaction_, empty, {entry(2)});
  EXPECT_EQ(setNote(transaction_, again[0], "draft"), "");
  EXPECT_EQ(setNote(transaction_, 99, "draft"), std::nullopt);
  const auto before = allEntries(database_);
  const RemovedRows removed = removeCollections(transaction_, {writing, 99});
  EXPECT_EQ(allEntries(database_).size(), 1U);
  EXPECT_EQ(putBack(transaction_, removed), 4U);
  EXPECT_EQ(allEntries(database_), before);
  EXPECT_EQ(takeChanges().collections, (std::set<RowId>{writing, empty}));
  const RemovedRows oneEntry = removeEntries(transaction_, again);
  removeCollections(transaction_, {writing});
  EXPECT_EQ(putBack(transaction_, oneEntry), 0U) << "its collection is gone";
}

TEST_F(Lists, AnEditKeepsWhatTheUserDidNotEdit) {
  const AppCollection writing{1, "Writing", "pencil", dayAndSecond(1)};
  addCollection(transaction_, writing);
  EXPECT_EQ(editCollection(transaction_, {1, "Prose", "book", dayAndSecond(7)}), writing);
  const AppCollection renamed{1, "Prose", "book", dayAndSecond(1)};
  EXPECT_EQ(collections(database_), std::vector{renamed});
  EXPECT_FALSE(editCollection(transaction_, {99, "x", "y", {}}));

  SavedSearch search{1, "Notes", "notes", "mac", "us", "rating", "{}", dayAndSecond(0), {}};
  addSavedSearch(transaction_, search);
  markUsed(transaction_, 1, dayAndSecond(5));
  search.lastUsedAt = dayAndSecond(5);
  EXPECT_EQ(editSavedSearch(transaction_, {.id = 1, .name = "Cheap"}), search);
  const SavedSearch edited{
      .id = 1, .name = "Cheap", .createdAt = dayAndSecond(0), .lastUsedAt = dayAndSecond(5)};
  EXPECT_EQ(savedSearches(database_), std::vector{edited});
}

TEST_F(Lists, AlertsAreReadOnceAndClearedUndoably) {
  const auto keys = addAlerts(transaction_, {alert(1), alert(3), alert(2)});
  EXPECT_EQ(alerts(database_).at(0).id, keys[1]);
  EXPECT_EQ(setAlertsRead(transaction_, {keys[0], 99}, ReadState::read), std::vector{keys[0]});
  EXPECT_EQ(markAllAlertsRead(transaction_), (std::vector{keys[1], keys[2]}));
  EXPECT_EQ(unreadAlertCount(database_), 0);
  setAlertsRead(transaction_, {keys[1], keys[2]}, ReadState::unread);
  EXPECT_EQ(unreadAlertCount(database_), 2);
  const auto before = alerts(database_);
  const RemovedRows removed = clearAlerts(transaction_);
  EXPECT_TRUE(alerts(database_).empty());
  putBack(transaction_, removed);
  EXPECT_EQ(alerts(database_), before);
}

TEST_F(Lists, TheNewestAlertsStayWhenOldOnesGo) {
  AlertRecord elsewhere = alert(3);
  elsewhere.country = "de";
  AlertRecord ofOther = alert(4);
  ofOther.trackId = 2;
  const auto keys = addAlerts(transaction_, {alert(1), elsewhere, alert(2), ofOther, alert(3)});
  const auto before = alerts(database_);
  EXPECT_EQ(newestAlerts(database_, 2), (std::vector{before[0], before[1]}));
  EXPECT_EQ(newestAlertOf(database_, 1), before[1]) << "the later one of the same time";
  EXPECT_EQ(newestAlertOf(database_, 9), std::nullopt);
  takeChanges();
  const RemovedRows removed = removeAlertsBefore(transaction_, dayAndSecond(3));
  EXPECT_EQ(alerts(database_), (std::vector{before[0], before[1], before[2]}));
  EXPECT_EQ(takeChanges().alerts, (std::set<RowId>{keys[0], keys[2]}));
  EXPECT_EQ(putBack(transaction_, removed), 2U);
  EXPECT_EQ(alerts(database_), before);
}

TEST_F(Lists, WhatWasAddedAnewIsNotOverwrittenByAnUndo) {
  watchApps(transaction_, {watched(1), watched(2)});
  const RemovedRows removed = unwatchApps(transaction_, {{1, "us"}, {2, "us"}, {3, "us"}});
  WatchedApp anew = watched(1);
  anew.targetPrice = 0.99;
  watchApps(transaction_, {anew});
  takeChanges();
  EXPECT_EQ(putBack(transaction_, removed), 1U);
  EXPECT_EQ(watchedAppsOf(database_, {{1, "us"}}).at(0).targetPrice, 0.99);
  EXPECT_EQ(watchedAppsOf(database_, {{2, "us"}}).at(0), removed.watchedApps[1]);
  EXPECT_EQ(takeChanges().watchedApps, (std::set<AppKey>{{2, "us"}}));
}

TEST_F(Lists, RemovingEverythingEmptiesTheListsAndKeepsTheHistory) {
  watchApps(transaction_, {watched(1)});
  addOwnedApps(transaction_, {owned(1)});
  addEntries(transaction_, addCollection(transaction_, {0, "Writing", "pencil", {}}), {entry(1)});
  const RowId search = addSavedSearch(transaction_, {.name = "Notes"});
  addAlerts(transaction_, {alert(1)});
  recordView(transaction_, cached(1), dayAndSecond(2));
  const ListCounts all{.watched = 1,
                       .owned = 1,
                       .collections = 1,
                       .entries = 1,
                       .savedSearches = 1,
                       .alerts = 1,
                       .viewed = 1};
  EXPECT_EQ(listCounts(database_), all);
  const RemovedRows removed = removeEverything(transaction_);
  EXPECT_EQ(listCounts(database_), ListCounts{.viewed = 1});
  EXPECT_EQ(viewedApps(database_, 10).size(), 1U);
  EXPECT_EQ(putBack(transaction_, removed), 6U) << "nothing was in the way";
  EXPECT_EQ(removeSavedSearches(transaction_, {search}).savedSearches, removed.savedSearches);
  putBack(transaction_, removed);
  EXPECT_EQ(removeEverything(transaction_), removed) << "all came back under its old keys";
}

}  // namespace
}  // namespace quillet
