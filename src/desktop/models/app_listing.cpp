// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/app_listing.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <iterator>

#include "analysis/app_build.h"
#include "library/known_apps.h"
#include "library/store_rows.h"

namespace quillet {

namespace {

/// Of one app: its record, and the build that is meant.
struct Listed {
  ITunesApp record;
  RecordSource source;
};

Listed listedOf(const KnownApp& known, const AppsToList& apps) {
  Listed listed{known.record, {known.key.country, ownPlatform(known.record), apps.when}};
  const auto shelved = apps.shelved.find(known.key);
  if (shelved != apps.shelved.end()) {
    listed.record = shelved->second.app;
    listed.source.platform = shelved->second.platform;
  }
  listed.source.platform = known.listedAs.value_or(listed.source.platform);
  return listed;
}

std::vector<Listed> listedApps(SQLite::Database& database, const AppsToList& apps) {
  std::vector<KnownApp> known = knownApps(database, apps.apps);
  for (const auto& [key, shelved] : apps.shelved) {
    if (std::ranges::find(known, key, &KnownApp::key) == known.end())
      known.push_back({.key = key, .record = shelved.app, .listedAs = {}});
  }
  std::vector<Listed> listed;
  for (const AppKey& app : apps.apps) {
    const auto found = std::ranges::find(known, app, &KnownApp::key);
    if (found != known.end()) listed.push_back(listedOf(*found, apps));
  }
  return listed;
}

/// The first of those chosen is to stand first: the newest does.
std::vector<CollectionEntry> entriesFor(SQLite::Database& database, const AppsToList& apps) {
  std::vector<CollectionEntry> entries;
  for (const Listed& each : listedApps(database, apps))
    entries.push_back(collectionEntryOf(each.record, each.source));
  std::ranges::reverse(entries);
  return entries;
}

}  // namespace

AppsToList appsToList(const std::vector<NamedKey>& apps, const ViewWorld& world) {
  AppsToList made{keysOf(apps), {}, world.clock.now()};
  for (const AppKey& app : made.apps) {
    if (auto shelved = world.records.find(app)) made.shelved.emplace(app, *std::move(shelved));
  }
  return made;
}

EditStep collecting(RowId collection, AppsToList apps) {
  return {[collection, apps = std::move(apps)](WriteTransaction& transaction) {
    // It may have gone while it was being chosen.
    const std::vector<AppCollection> all = collections(transaction.database);
    if (std::ranges::find(all, collection, &AppCollection::id) == all.end()) return EditStep();
    return addingEntries(collection, entriesFor(transaction.database, apps)).run(transaction);
  }};
}

EditStep collectingAnew(AppCollection collection, AppsToList apps) {
  return {[collection = std::move(collection),
           apps = std::move(apps)](WriteTransaction& transaction) {
    return addingCollection(collection, entriesFor(transaction.database, apps)).run(transaction);
  }};
}

EditStep owningByHand(AppsToList apps) {
  return {[apps = std::move(apps)](WriteTransaction& transaction) {
    std::vector<OwnedApp> owned;
    for (const Listed& each : listedApps(transaction.database, apps))
      owned.push_back(ownedAppOf(each.record, each.source, OwnedSource::manual));
    return owning(std::move(owned)).run(transaction);
  }};
}

EditStep watchingListed(AppsToList apps, const WatchOptions& options) {
  return {[apps = std::move(apps), options](WriteTransaction& transaction) {
    std::vector<WatchedApp> watched;
    for (const Listed& each : listedApps(transaction.database, apps)) {
      watched.push_back(watchedAppOf(each.record, each.source));
      setOptions(watched.back(), options);
    }
    return watching(std::move(watched)).run(transaction);
  }};
}

std::vector<AppKey> keysOf(const std::vector<NamedKey>& apps) {
  std::vector<AppKey> keys;
  std::ranges::transform(apps, std::back_inserter(keys), &NamedKey::app);
  return keys;
}

QString phraseOf(const std::vector<NamedKey>& apps) {
  if (apps.size() == 1 && !apps.front().name.isEmpty())
    return QCoreApplication::translate("Rows", "“%1”").arg(apps.front().name);
  const auto count = static_cast<qlonglong>(apps.size());
  if (count == 1) return QCoreApplication::translate("Rows", "1 app");
  return QCoreApplication::translate("Rows", "%1 apps").arg(QLocale().toString(count));
}

}  // namespace quillet
