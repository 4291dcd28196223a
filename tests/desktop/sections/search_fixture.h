// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include "desktop/sections/made_store.h"
#include "desktop/support/view_parts.h"
#include "library/library_folder.h"
#include "net/run_task.h"
#include "queries/query_call.h"
#include "support/event_loop.h"
#include "support/fake_clock.h"
#include "support/memory_settings.h"

namespace quillet {

/// Searches in a made store, with a library and a clock of the test's.
class SearchTest : public testing::Test {
 protected:
  SearchTest() {
    parts.store.use(services(), stop.token());
    parts.library.use(*library);
  }
  /// To be called by whoever asked something, once who asked is gone.
  void end() {
    stop.requestStop();
    http.release();
    settle();
    runTask(parts.store.ended());
  }

  QueryServices services() { return {itunes, catalog, charts, pages, clock}; }

  /// Until the store, the library and the event loop have nothing left to do at once.
  void settle() {
    for (int turn = 0; turn < 3; ++turn) {
      runTask(library->read([](SQLite::Database&) { return 0; }));
      handlePendingEvents();
    }
  }

  LibraryFolder folder;
  std::unique_ptr<DataStore> library = folder.open();
  FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 20})};
  MadeStore http;
  MemorySettings settings;
  StopSource stop;
  ITunesClient itunes{http, clock, "https://store.example"};
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  ChartsPageScraper chartPages{http, "https://web.example"};
  ChartsService charts{itunes, chartPages, "https://store.example"};
  StoreScraper pages{http, clock, "https://web.example", {}};
  ViewParts parts{http, clock, settings};
};

inline StoreQuery searchFor(std::string words, AppFilters filters = {},
                            SortOrder sort = SortOrder::relevance) {
  StoreQuery query;
  query.request = {.query = std::move(words), .filters = std::move(filters), .sort = sort};
  return query;
}

/// Mac apps, numbered from 1, whose ratings the search service does not know.
inline std::vector<ITunesApp> macApps(std::int64_t count) {
  std::vector<ITunesApp> apps;
  for (std::int64_t id = 1; id <= count; ++id)
    apps.push_back({.trackId = id,
                    .trackName = "App " + std::to_string(id),
                    .kind = "mac-software",
                    .price = 1.99,
                    .averageUserRating = 0,
                    .userRatingCount = 0});
  return apps;
}

}  // namespace quillet
