// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "desktop/models/place.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// An app in one of the user's lists.
struct ListedApp {
  AppKey app;
  std::string name;
  SectionId section = SectionId::watchlist;
  std::optional<RowId> collection;
  std::string collectionName;  ///< empty elsewhere

  friend bool operator==(const ListedApp&, const ListedApp&) = default;
};

/// Every app of the watchlist, My Apps, the collections and the history, once for each list. Runs
/// on the library's thread.
[[nodiscard]] std::vector<ListedApp> listedApps(SQLite::Database& database);

/// The lists' order decides where an app stands in several. Without a storefront `preferred` comes
/// before others. Absent for an app that is in no list. Runs on the library's thread.
[[nodiscard]] std::optional<ListedApp> findListed(SQLite::Database& database, std::int64_t trackId,
                                                  const std::optional<std::string>& country,
                                                  const std::string& preferred);

/// Its row in its list.
[[nodiscard]] Place placeOf(const ListedApp& listed);
/// "Watchlist", or the collection's name.
[[nodiscard]] QString listNameOf(const ListedApp& listed);

}  // namespace quillet
