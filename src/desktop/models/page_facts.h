// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/described_app.h"
#include "library/price_series.h"
#include "library/schema/cached_app.h"
#include "library/schema/owned_app.h"
#include "library/schema/watched_app.h"
#include "store/records/platform.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// A collection that an app is in.
struct PageEntry {
  RowId collection = 0;
  std::string name;
  std::string symbolName;
  std::string note;  ///< empty when there is none
  Instant addedAt{};

  friend bool operator==(const PageEntry&, const PageEntry&) = default;
};

/// What the store told of an app in this run.
struct StoreFacts {
  DescribedApp app;
  std::optional<AppEnrichment> catalog;  ///< absent where it was not read
  Instant asOf{};                        ///< of the record
};

/// What is known of one app: what its page shows.
struct PageFacts {
  AppKey app;
  std::string name;  ///< of the newest of the records below; empty where nothing is known
  std::optional<std::string> seller;
  std::optional<std::string> artwork;
  std::optional<std::string> link;  ///< its page in the store
  std::optional<CachedApp> cached;  ///< the newest record, kept or not
  std::optional<WatchedApp> watched;
  std::optional<OwnedApp> owned;
  std::vector<PageEntry> entries;
  std::optional<Platform> listedAs;  ///< the build that the user's lists mean
  AppPriceSeries prices;
  std::vector<PurchaseSeries> purchases;    ///< what the library recorded of those sold inside
  std::shared_ptr<const StoreFacts> store;  ///< null before it answered
  bool isGone = false;                      ///< the storefront has it no longer

  friend bool operator==(const PageFacts&, const PageFacts&) = default;
};

/// Takes in what the store told of the app, unless the library knows something newer.
void addRecord(PageFacts& facts, const CachedApp& record);

/// What the library knows. Runs on its thread.
[[nodiscard]] PageFacts readPageFacts(SQLite::Database& database, const AppKey& app);

}  // namespace quillet
