// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/data_store.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "base/errors.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

using Apps = std::vector<WatchedApp>;

/// The changes that a store tells of, in order.
class ToldChanges {
 public:
  explicit ToldChanges(const DataStore& store) {
    QObject::connect(&store, &DataStore::changed, &context_,
                     [this](const LibraryChanges& changes) { all.push_back(changes); });
  }

  std::vector<LibraryChanges> all;

 private:
  QObject context_;
};

std::string messageOf(Task<std::unique_ptr<DataStore>> opening) {
  try {
    runTask(std::move(opening));
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return "opened";
}

TEST(DataStore, KeepsWhatWasCommittedAndTellsItsKeys) {
  const LibraryFolder folder;
  {
    const auto store = folder.open();
    const ToldChanges told(*store);
    const Apps apps{watched(1), watched(2), watched(1, "de")};
    EXPECT_EQ(runTask(store->change(watchApps, apps)).size(), 3U);
    EXPECT_EQ(runTask(store->change(watchApps, Apps{watched(2)})).size(), 0U);
    ASSERT_EQ(told.all.size(), 1U) << "a change that touches nothing is not told";
    LibraryChanges expected;
    expected.watchedApps = {{1, "de"}, {1, "us"}, {2, "us"}};
    EXPECT_EQ(told.all[0], expected);
  }
  const auto rows = runTask(folder.open()->read(watchedApps));
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].trackId, 2) << "the newest comes first";
}

TEST(DataStore, AChangeThatFailsHasChangedNothing) {
  const LibraryFolder folder;
  const auto store = folder.open();
  const ToldChanges told(*store);
  const auto watchAndThrow = [](WriteTransaction& transaction, const Apps& apps) {
    watchApps(transaction, apps);
    throw std::runtime_error("changed my mind");
  };
  EXPECT_THROW(runTask(store->change(watchAndThrow, Apps{watched(1)})), std::runtime_error);
  Apps broken{watched(2), watched(3)};
  broken[1].currentPrice = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(runTask(store->change(watchApps, broken)), DatabaseError);
  EXPECT_EQ(runTask(store->read(watchedApps)), Apps());
  EXPECT_TRUE(told.all.empty());
  EXPECT_EQ(runTask(store->change(watchApps, Apps{watched(2)})).size(), 1U) << "it goes on";
}

Task<> watchBoth(DataStore* store, std::vector<std::size_t>* rowsSeen) {
  auto first = store->change(watchApps, Apps{watched(1)});
  auto between = store->read(watchedApps);
  auto second = store->change(watchApps, Apps{watched(2)});
  const auto afterwards = co_await store->read(watchedApps);
  const auto rowsBetween = co_await between;
  co_await first;
  co_await second;
  rowsSeen->push_back(rowsBetween.size());
  rowsSeen->push_back(afterwards.size());
}

TEST(DataStore, WhatIsAskedForTogetherHappensInOrder) {
  const LibraryFolder folder;
  const auto store = folder.open();
  const ToldChanges told(*store);
  std::vector<std::size_t> rowsSeen;
  runTask(watchBoth(store.get(), &rowsSeen));
  EXPECT_EQ(rowsSeen, (std::vector<std::size_t>{1, 2}));
  EXPECT_EQ(told.all.size(), 2U);
}

TEST(DataStore, FinishesWhatWasAskedForBeforeItEnds) {
  const LibraryFolder folder;
  auto store = folder.open();
  auto task = store->change(watchApps, Apps{watched(1)});
  store.reset();
  EXPECT_EQ(runTask(std::move(task)).size(), 1U);
  EXPECT_EQ(runTask(folder.open()->read(watchedApps)).size(), 1U);
}

TEST(DataStore, ASecondWriterIsRefusedUntilTheFirstHasEnded) {
  const LibraryFolder folder;
  auto store = folder.open();
  EXPECT_EQ(messageOf(DataStore::open(folder.file())),
            "Another Quillet is writing to the library.");
  store.reset();
  EXPECT_EQ(messageOf(DataStore::open(folder.file())), "opened")
      << "whose lock file is still there";
}

TEST(DataStore, ALibraryThatCannotBeUsedIsLeftAsItIs) {
  const struct {
    const char* situation;
    const char* sql;  ///< none for a file that is no database
    const char* message;
  } rows[] = {
      {"newer", "PRAGMA journal_mode = WAL; CREATE TABLE ZNEW (a); PRAGMA user_version = 99",
       "The library was written by a newer Quillet (revision 99, this one knows 4)."},
      {"garbage", nullptr, "The library could not be opened: file is not a database."},
  };
  for (const auto& row : rows) {
    const LibraryFolder folder;
    if (row.sql) {
      SQLite::Database(folder.file().string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
          .exec(row.sql);
    } else {
      std::ofstream(folder.file()) << std::string(5000, 'x');
    }
    const std::string before = contentOf(folder.file());
    EXPECT_EQ(messageOf(DataStore::open(folder.file())), row.message) << row.situation;
    EXPECT_EQ(contentOf(folder.file()), before) << row.situation;
  }
  const LibraryFolder folder;
  std::ofstream(folder.file()) << "in the way";
  EXPECT_EQ(messageOf(DataStore::open(folder.file() / "default.store")),
            "The library could not be opened: Not a directory.");
}

}  // namespace
}  // namespace quillet
