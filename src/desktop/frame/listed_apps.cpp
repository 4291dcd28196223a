// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/listed_apps.h"

#include "desktop/frame/section_table.h"
#include "desktop/models/row_parts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

constexpr std::int64_t kMostViewed = 10'000;  // as many as the history shows

template <typename Rows>
void add(std::vector<ListedApp>& listed, const Rows& rows, SectionId section) {
  for (const auto& row : rows) listed.push_back({keyOf(row), row.name, section, {}, {}});
}

void addCollections(std::vector<ListedApp>& listed, SQLite::Database& database) {
  for (const AppCollection& collection : collections(database)) {
    for (const CollectionEntry& entry : entriesOf(database, collection.id)) {
      listed.push_back(
          {keyOf(entry), entry.name, SectionId::collections, collection.id, collection.name});
    }
  }
}

}  // namespace

std::vector<ListedApp> listedApps(SQLite::Database& database) {
  std::vector<ListedApp> listed;
  add(listed, watchedApps(database), SectionId::watchlist);
  addCollections(listed, database);
  add(listed, ownedApps(database), SectionId::myApps);
  add(listed, viewedApps(database, kMostViewed), SectionId::history);
  return listed;
}

std::optional<ListedApp> findListed(SQLite::Database& database, std::int64_t trackId,
                                    const std::optional<std::string>& country,
                                    const std::string& preferred) {
  std::optional<ListedApp> found;
  for (ListedApp& listed : listedApps(database)) {
    if (listed.app.trackId != trackId) continue;
    if (country && listed.app.country != *country) continue;
    if (listed.app.country == preferred) return std::move(listed);
    if (!found) found = std::move(listed);
  }
  return found;
}

Place placeOf(const ListedApp& listed) {
  Place place;
  place.section = listed.section;
  if (listed.collection) place.what = *listed.collection;
  place.chosen = RowKey{listed.app, 0};
  return place;
}

QString listNameOf(const ListedApp& listed) {
  return listed.collection ? collectionLine(listed.collectionName) : nameOf(listed.section);
}

}  // namespace quillet
