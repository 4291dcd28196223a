// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/data_store.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <vector>

#include "base/errors.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using Apps = std::vector<WatchedApp>;

class DataStoreTest : public testing::Test {
 protected:
  DataStoreTest() {
    QObject::connect(store_.get(), &DataStore::changed, store_.get(),
                     [this](const LibraryChanges& changes) { told_.push_back(changes); });
  }

  LibraryFolder folder_;
  std::vector<LibraryChanges> told_;
  std::unique_ptr<DataStore> store_ = folder_.open();
};

/// How the opening of a library ends.
std::string openingOf(const std::filesystem::path& file) {
  try {
    runTask(DataStore::open(file));
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return "opened";
}

TEST_F(DataStoreTest, KeepsWhatWasCommittedAndTellsItsKeys) {
  const Apps apps{watched(1), watched(2), watched(1, "de")};
  EXPECT_EQ(runTask(store_->change(watchApps, apps)).size(), 3U);
  EXPECT_EQ(runTask(store_->change(watchApps, Apps{watched(2)})).size(), 0U);
  ASSERT_EQ(told_.size(), 1U) << "a change that touches nothing is not told";
  const LibraryChanges expected{.watchedApps = {{1, "de"}, {1, "us"}, {2, "us"}}};
  EXPECT_EQ(told_[0], expected);
  store_.reset();
  const auto rows = runTask(folder_.open()->read(watchedApps));
  EXPECT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows.at(0).trackId, 2) << "the newest comes first";
}

TEST_F(DataStoreTest, AChangeThatFailsHasChangedNothing) {
  const auto watchAndThrow = [](WriteTransaction& transaction, const Apps& apps) {
    watchApps(transaction, apps);
    throw std::runtime_error("changed my mind");
  };
  EXPECT_THROW(runTask(store_->change(watchAndThrow, Apps{watched(1)})), std::runtime_error);
  Apps broken{watched(2), watched(3)};
  broken[1].currentPrice = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(runTask(store_->change(watchApps, broken)), DatabaseError);
  EXPECT_EQ(runTask(store_->read(watchedApps)), Apps());
  EXPECT_TRUE(told_.empty());
  EXPECT_EQ(runTask(store_->change(watchApps, Apps{watched(2)})).size(), 1U) << "it goes on";
}

TEST_F(DataStoreTest, WhatIsAskedForTogetherHappensInOrderAndBeforeItEnds) {
  auto first = store_->change(watchApps, Apps{watched(1)});
  auto between = store_->read(watchedApps);
  auto second = store_->change(watchApps, Apps{watched(2)});
  store_.reset();
  EXPECT_EQ(runTask(std::move(between)).size(), 1U);
  runTask(std::move(first));
  runTask(std::move(second));
  EXPECT_EQ(runTask(folder_.open()->read(watchedApps)).size(), 2U);
}

TEST_F(DataStoreTest, ASecondWriterIsRefusedUntilTheFirstHasEnded) {
  EXPECT_EQ(openingOf(folder_.file()), "Another Quillet is writing to the library.");
  store_.reset();
  EXPECT_EQ(openingOf(folder_.file()), "opened") << "whose lock file is still there";
}

TEST(UnusableLibrary, IsLeftAsItIs) {
  const auto refusalOf = [](const char* sql) {
    const TemporaryFolder whole;
    const TemporaryFolder crashed;
    if (sql == nullptr) {
      std::ofstream(crashed.path() / "default.store") << std::string(5000, 'x');
    } else {
      const std::string file = whole.path() / "default.store";
      SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
      database.exec(sql);
      std::filesystem::copy(whole.path(), crashed.path());  // with its log
    }
    const std::string file = crashed.path() / "default.store";
    const std::string before = contentOf(file) + contentOf(file + "-wal");
    const std::string message = openingOf(file);
    EXPECT_EQ(contentOf(file) + contentOf(file + "-wal"), before) << message;
    return message;
  };
  EXPECT_EQ(refusalOf("PRAGMA journal_mode = WAL; CREATE TABLE ZNEW (a); PRAGMA user_version = 99"),
            "The library was written by a newer Quillet (revision 99, this one knows 6).");
  const std::string notOurs = "The library's file was not made by Quillet.";
  EXPECT_EQ(refusalOf("CREATE TABLE notes (text TEXT)"), notOurs);
  EXPECT_EQ(refusalOf("PRAGMA user_version = -1"), notOurs);
  EXPECT_EQ(refusalOf(nullptr), "The library could not be opened: file is not a database.");
  EXPECT_EQ(openingOf("/dev/null/default.store"),
            "The library could not be opened: Not a directory.");
}

}  // namespace
}  // namespace quillet
