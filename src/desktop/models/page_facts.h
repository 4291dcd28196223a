// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/price_series.h"
#include "library/schema/cached_app.h"
#include "library/schema/owned_app.h"
#include "library/schema/watched_app.h"

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

/// What the library knows of one app: what its page shows before anybody is asked.
struct PageFacts {
  AppKey app;
  std::string name;  ///< of the newest of the records below; empty where nothing is known
  std::optional<std::string> seller;
  std::optional<std::string> artwork;
  std::optional<std::string> link;  ///< its page in the store
  std::optional<CachedApp> cached;
  std::optional<WatchedApp> watched;
  std::optional<OwnedApp> owned;
  std::vector<PageEntry> entries;
  AppPriceSeries prices;

  friend bool operator==(const PageFacts&, const PageFacts&) = default;
};

/// Runs on the library's thread.
[[nodiscard]] PageFacts readPageFacts(SQLite::Database& database, const AppKey& app);

}  // namespace quillet
