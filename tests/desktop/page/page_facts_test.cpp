// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/page_facts.h"

#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

class PageFactsTest : public MemoryLibraryTest {
 protected:
  void add(const CachedApp& app) { recordView(transaction_, app, app.updatedAt); }
  void add(const WatchedApp& app) { watchApps(transaction_, {app}); }
  void add(const OwnedApp& app) { addOwnedApps(transaction_, {app}); }
  void add(RowId collection, const CollectionEntry& entry) {
    addEntries(transaction_, collection, {entry});
  }

  [[nodiscard]] PageFacts facts(std::int64_t trackId) {
    return readPageFacts(database_, {trackId, "us"});
  }
};

TEST_F(PageFactsTest, AreEmptyWhereNothingIsKnown) {
  add(cached(8));
  add(watched(7, "de"));
  EXPECT_EQ(facts(7), (PageFacts{.app = {7, "us"}, .prices = {{7, "us"}, {}}}));
}

TEST_F(PageFactsTest, HoldWhatEachListAndTheCacheSayInThisStorefront) {
  add(cached(7));
  add(cached(8));
  add(watched(7));
  add(watched(7, "de"));
  add(owned(7));
  const RowId reading = addCollection(transaction_, {.name = "Reading", .symbolName = "book"});
  const RowId mac = addCollection(transaction_, {.name = "Mac", .symbolName = "laptopcomputer"});
  const RowId other = addCollection(transaction_, {.name = "Other"});
  add(reading, entry(7, "Ask Ines."));
  add(mac, entry(7));
  add(other, entry(8));
  const auto point = [](double price, std::string currency, int day) {
    return PricePoint{.trackId = 7,
                      .country = "us",
                      .price = price,
                      .currency = std::move(currency),
                      .date = dayAndSecond(day)};
  };
  addPricePoints(transaction_, {point(9, "EUR", 1), point(5, "USD", 2), point(4, "USD", 3)});

  const PageFacts known = facts(7);
  EXPECT_EQ(known.cached->trackId, 7);
  EXPECT_EQ(known.watched->country, "us");
  EXPECT_EQ(known.owned->trackId, 7);
  EXPECT_EQ(known.entries,
            (std::vector<PageEntry>{{mac, "Mac", "laptopcomputer", "", dayAndSecond(7)},
                                    {reading, "Reading", "book", "Ask Ines.", dayAndSecond(7)}}));
  EXPECT_EQ(known.prices.prices,
            (std::vector<RecordedPrice>{{dayAndSecond(2), 5, "USD"}, {dayAndSecond(3), 4, "USD"}}));
}

TEST_F(PageFactsTest, TakeEachTextFromTheNewestRecordThatHasIt) {
  CachedApp old = cached(7, "Inkwell");
  old.updatedAt = dayAndSecond(1);
  old.sellerName = "Rook & Reed";
  old.artworkUrl512 = "https://pictures.example/7.png";
  old.trackViewUrl = "https://apps.example/7";
  add(old);
  WatchedApp newer = watched(7);
  newer.addedAt = dayAndSecond(2);
  newer.name = "Inkwell 2";
  newer.artworkUrl = "";
  newer.trackViewUrl = "file:///bin/true";
  add(newer);

  const PageFacts known = facts(7);
  EXPECT_EQ(known.name, "Inkwell 2");
  EXPECT_EQ(known.seller, "Rook & Reed");
  EXPECT_EQ(known.artwork, "https://pictures.example/7.png");
  EXPECT_EQ(known.link, "https://apps.example/7");
}

}  // namespace
}  // namespace quillet
