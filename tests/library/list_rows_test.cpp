// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/list_rows.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using ListRows = MemoryLibraryTest;

CachedApp page(std::int64_t trackId, std::string country, std::string name) {
  return {.trackId = trackId, .country = std::move(country), .name = std::move(name)};
}

/// Which app each row is about, and what the cache calls it.
template <typename Row, typename Item>
std::string shown(const std::vector<Row>& rows, Item Row::* item) {
  std::vector<std::string> words;
  for (const Row& row : rows) {
    words.push_back(fmt::format("{} {} {}", (row.*item).trackId, (row.*item).country,
                                row.cached ? row.cached->name : "-"));
  }
  return join(words, ", ");
}

TEST_F(ListRows, HoldWhatTheCacheKnowsOfTheSameAppInTheSameStorefront) {
  for (const CachedApp& app : {page(3, "us", "Three"), page(1, "us", "One"), page(1, "de", "Eins"),
                               page(2, "fr", "Deux"), page(9, "us", "Nine")}) {
    recordView(transaction_, app, dayAndSecond(1));
  }
  watchApps(transaction_, {watched(1), watched(3), watched(1, "de"), watched(2)});
  EXPECT_EQ(shown(watchedRows(database_), &WatchedRow::app),
            "3 us Three, 2 us -, 1 de Eins, 1 us One");
  const std::vector<AppKey> asked{{2, "us"}, {9, "us"}, {3, "us"}, {1, "us"}, {3, "us"}};
  EXPECT_EQ(shown(watchedRowsOf(database_, asked), &WatchedRow::app),
            "2 us -, 3 us Three, 1 us One, 3 us Three");

  addOwnedApps(transaction_, {owned(3, "b"), owned(2, "A"), owned(9, "c")});
  EXPECT_EQ(shown(ownedRows(database_), &OwnedRow::app), "2 us -, 3 us Three, 9 us Nine");
  EXPECT_EQ(shown(ownedRowsOf(database_, asked), &OwnedRow::app),
            "2 us -, 9 us Nine, 3 us Three, 3 us Three");

  const RowId writing = addCollection(transaction_, {0, "Writing", "pencil", {}});
  const RowId other = addCollection(transaction_, {0, "Other", "folder", {}});
  addEntries(transaction_, writing, {entry(1), entry(2)});
  addEntries(transaction_, other, {entry(3)});
  EXPECT_EQ(shown(entryRows(database_, writing), &EntryRow::entry), "2 us -, 1 us One");
}

}  // namespace
}  // namespace quillet
