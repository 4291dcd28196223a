// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_counts.h"

#include <gtest/gtest.h>

#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/deals.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using Counts = MemoryLibraryTest;

Deal deal(std::int64_t trackId, std::string country) {
  return {.trackId = trackId,
          .country = std::move(country),
          .wasPrice = 4,
          .nowPrice = 2,
          .percentOff = 50};
}

TEST_F(Counts, OfAnEmptyLibraryAreNone) {
  EXPECT_EQ(libraryCounts(database_, "us"), LibraryCounts());
}

TEST_F(Counts, AreOfEachKind) {
  std::vector<WatchedApp> apps{watched(1), watched(1, "de"), watched(2)};
  apps[0].lastCheckedAt = dayAndSecond(1);
  apps[1].lastCheckedAt = dayAndSecond(2);
  watchApps(transaction_, apps);
  const auto alerts = addAlerts(transaction_, {{.trackId = 1}, {.trackId = 2}, {.trackId = 3}});
  setAlertsRead(transaction_, {alerts[1]}, ReadState::read);
  for (const int id : {1, 2, 3, 4}) recordView(transaction_, cached(id), dayAndSecond(id));
  forgetViews(transaction_, {{2, "us"}});
  keepDeals(transaction_, {deal(1, "us"), deal(2, "us"), deal(1, "de")});
  const RowId writing = addCollection(transaction_, {0, "writing", "pencil", {}});
  const RowId music = addCollection(transaction_, {0, "Music", "note", {}});
  const RowId empty = addCollection(transaction_, {0, "Zoo", "folder", {}});
  addEntries(transaction_, writing, {entry(1), entry(2)});
  addEntries(transaction_, music, {entry(1)});
  const LibraryCounts expected{.watched = 3,
                               .unreadAlerts = 2,
                               .viewed = 3,
                               .deals = 2,
                               .checked = dayAndSecond(2),
                               .collections = {{music, "Music", "note", 1},
                                               {writing, "writing", "pencil", 2},
                                               {empty, "Zoo", "folder"}}};
  EXPECT_EQ(libraryCounts(database_, "us"), expected);
}

TEST_F(Counts, OfUpdatesLeaveOutWhatIsCurrentUnknownOrSkipped) {
  std::vector<OwnedApp> apps;
  const auto add = [&](std::optional<std::string> installed, std::optional<std::string> store,
                       std::optional<std::string> skipped) {
    OwnedApp& app = apps.emplace_back(owned(static_cast<std::int64_t>(apps.size() + 1)));
    app.installedVersion = std::move(installed);
    app.storeVersion = std::move(store);
    app.skippedVersion = std::move(skipped);
  };
  add("1.9", "1.10", {});
  add("1.0", "3.1", "3.0");
  add("1.0", "3", "3.0");
  add("2.0", "2", {});
  add("2.1", "2.0", {});
  add({}, "2.0", {});
  add("2.0", {}, {});
  addOwnedApps(transaction_, apps);
  const LibraryCounts counts = libraryCounts(database_, "us");
  EXPECT_EQ(counts.owned, 7);
  EXPECT_EQ(counts.updates, 2) << "the first two";
}

}  // namespace
}  // namespace quillet
