// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/edit_steps.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "library/cached_apps.h"
#include "library/saved_searches.h"

namespace quillet {

namespace {

/// Rows that a step added, by their keys.
struct AddedRows {
  std::vector<AppKey> watchedApps;
  std::vector<AppKey> ownedApps;
  std::vector<RowId> collections;
  std::vector<RowId> entries;
  std::vector<RowId> searches;
  std::vector<RowId> alerts;
  std::vector<AppKey> views;
};

template <typename Row, typename Key>
std::vector<Key> keysOf(const std::vector<Row>& rows, Key (*key)(const Row&)) {
  std::vector<Key> keys;
  keys.reserve(rows.size());
  std::ranges::transform(rows, std::back_inserter(keys), key);
  return keys;
}

template <typename Row>
RowId idOf(const Row& row) {
  return row.id;
}

template <typename Row>
AppKey appOf(const Row& row) {
  return keyOf(row);
}

AddedRows keysOf(const RemovedRows& rows) {
  return {keysOf(rows.watchedApps, &appOf<WatchedApp>),
          keysOf(rows.ownedApps, &appOf<OwnedApp>),
          keysOf(rows.collections, &idOf<AppCollection>),
          keysOf(rows.entries, &idOf<CollectionEntry>),
          keysOf(rows.savedSearches, &idOf<SavedSearch>),
          keysOf(rows.alerts, &idOf<AlertRecord>),
          keysOf<AppView, AppKey>(rows.views, [](const AppView& view) { return view.app; })};
}

template <typename Row>
void append(std::vector<Row>& to, std::vector<Row> from) {
  std::ranges::move(from, std::back_inserter(to));
}

RemovedRows takeOut(WriteTransaction& transaction, const AddedRows& added) {
  RemovedRows removed;
  removed.watchedApps = unwatchApps(transaction, added.watchedApps).watchedApps;
  removed.ownedApps = removeOwnedApps(transaction, added.ownedApps).ownedApps;
  removed.entries = removeEntries(transaction, added.entries).entries;
  RemovedRows collections = removeCollections(transaction, added.collections);
  removed.collections = std::move(collections.collections);
  append(removed.entries, std::move(collections.entries));
  removed.savedSearches = removeSavedSearches(transaction, added.searches).savedSearches;
  removed.alerts = removeAlerts(transaction, added.alerts).alerts;
  removed.views = forgetViews(transaction, added.views).views;
  return removed;
}

EditStep takingOut(AddedRows added);

EditStep puttingBack(RemovedRows removed) {
  if (removed == RemovedRows()) return {};
  return {[removed = std::move(removed)](WriteTransaction& transaction) {
    return putBack(transaction, removed) > 0 ? takingOut(keysOf(removed)) : EditStep();
  }};
}

EditStep takingOut(AddedRows added) {
  return {[added = std::move(added)](WriteTransaction& transaction) {
    return puttingBack(takeOut(transaction, added));
  }};
}

/// Of an operation that returns what would undo it, to be done by itself.
template <typename Edits>
EditStep setting(Edits edits, Edits (*apply)(WriteTransaction&, const Edits&)) {
  return {[edits = std::move(edits), apply](WriteTransaction& transaction) {
    Edits before = apply(transaction, edits);
    return before.empty() ? EditStep() : setting(std::move(before), apply);
  }};
}

/// Of one row, which an operation returns as it was.
template <typename Row>
EditStep settingRow(Row row, std::optional<Row> (*apply)(WriteTransaction&, const Row&)) {
  return {[row = std::move(row), apply](WriteTransaction& transaction) {
    std::optional<Row> before = apply(transaction, row);
    return before ? settingRow(*std::move(before), apply) : EditStep();
  }};
}

ReadState opposite(ReadState state) {
  return state == ReadState::read ? ReadState::unread : ReadState::read;
}

EditStep markingBack(std::vector<RowId> changed, ReadState state) {
  return changed.empty() ? EditStep() : markingAlerts(std::move(changed), opposite(state));
}

}  // namespace

EditStep watching(std::vector<WatchedApp> apps) {
  return {[apps = std::move(apps)](WriteTransaction& transaction) {
    AddedRows added{.watchedApps = watchApps(transaction, apps)};
    return added.watchedApps.empty() ? EditStep() : takingOut(std::move(added));
  }};
}

EditStep unwatching(std::vector<AppKey> apps) {
  return takingOut({.watchedApps = std::move(apps)});
}

EditStep settingWatches(std::vector<WatchEdit> edits) {
  return setting(std::move(edits), &editWatches);
}

EditStep owning(std::vector<OwnedApp> apps) {
  return {[apps = std::move(apps)](WriteTransaction& transaction) {
    AddedRows added{.ownedApps = addOwnedApps(transaction, apps)};
    return added.ownedApps.empty() ? EditStep() : takingOut(std::move(added));
  }};
}

EditStep disowning(std::vector<AppKey> apps) { return takingOut({.ownedApps = std::move(apps)}); }

EditStep settingOwned(std::vector<OwnedEdit> edits) {
  return setting(std::move(edits), &editOwnedApps);
}

EditStep skippingUpdates(std::vector<AppKey> apps, SkipUpdates what) {
  return {[apps = std::move(apps), what](WriteTransaction& transaction) {
    std::vector<OwnedEdit> before = skipUpdates(transaction, apps, what);
    return before.empty() ? EditStep() : settingOwned(std::move(before));
  }};
}

EditStep addingCollection(AppCollection collection, std::vector<CollectionEntry> entries) {
  return {[collection = std::move(collection),
           entries = std::move(entries)](WriteTransaction& transaction) {
    const RowId key = addCollection(transaction, collection);
    addEntries(transaction, key, entries);
    return takingOut({.collections = {key}});
  }};
}

EditStep settingCollection(AppCollection collection) {
  return settingRow(std::move(collection), &editCollection);
}

EditStep removingCollections(std::vector<RowId> collections) {
  return takingOut({.collections = std::move(collections)});
}

EditStep addingEntries(RowId collection, std::vector<CollectionEntry> entries) {
  return {[collection, entries = std::move(entries)](WriteTransaction& transaction) {
    AddedRows added{.entries = addEntries(transaction, collection, entries)};
    return added.entries.empty() ? EditStep() : takingOut(std::move(added));
  }};
}

EditStep removingEntries(std::vector<RowId> entries) {
  return takingOut({.entries = std::move(entries)});
}

EditStep removingFrom(RowId collection, std::vector<AppKey> apps) {
  return {[collection, apps = std::move(apps)](WriteTransaction& transaction) {
    std::vector<RowId> keys;
    for (const CollectionEntry& entry : entriesOf(transaction.database, collection))
      if (std::ranges::find(apps, keyOf(entry)) != apps.end()) keys.push_back(entry.id);
    return removingEntries(std::move(keys)).run(transaction);
  }};
}

EditStep settingNote(RowId entry, std::string note) {
  return {[entry, note = std::move(note)](WriteTransaction& transaction) {
    std::optional<std::string> before = setNote(transaction, entry, note);
    return before && *before != note ? settingNote(entry, *std::move(before)) : EditStep();
  }};
}

EditStep addingSearch(SavedSearch search) {
  return {[search = std::move(search)](WriteTransaction& transaction) {
    return takingOut({.searches = {addSavedSearch(transaction, search)}});
  }};
}

EditStep settingSearch(SavedSearch search) {
  return settingRow(std::move(search), &editSavedSearch);
}

EditStep renamingSearch(RowId search, std::string name) {
  return {[search, name = std::move(name)](WriteTransaction& transaction) {
    std::vector<SavedSearch> searches = savedSearches(transaction.database);
    const auto found = std::ranges::find(searches, search, &SavedSearch::id);
    if (found == searches.end() || found->name == name) return EditStep();
    found->name = name;
    return settingSearch(*found).run(transaction);
  }};
}

EditStep removingSearches(std::vector<RowId> searches) {
  return takingOut({.searches = std::move(searches)});
}

EditStep markingAlerts(std::vector<RowId> alerts, ReadState state) {
  return {[alerts = std::move(alerts), state](WriteTransaction& transaction) {
    return markingBack(setAlertsRead(transaction, alerts, state), state);
  }};
}

EditStep markingAllAlertsRead() {
  return {[](WriteTransaction& transaction) {
    return markingBack(markAllAlertsRead(transaction), ReadState::read);
  }};
}

EditStep removingAlerts(std::vector<RowId> alerts) {
  return takingOut({.alerts = std::move(alerts)});
}

EditStep forgettingViews(std::vector<AppKey> apps) { return takingOut({.views = std::move(apps)}); }

EditStep forgettingAllViews() {
  return {[](WriteTransaction& transaction) { return puttingBack(forgetAllViews(transaction)); }};
}

EditStep importing(std::shared_ptr<const LibraryExport> document, Instant now,
                   std::function<void(const ImportCounts&)> tell) {
  return {
      [document = std::move(document), now, tell = std::move(tell)](WriteTransaction& transaction) {
        LibraryImport imported = importLibrary(transaction, *document, now);
        tell(imported.counts);
        AddedRows added{.watchedApps = std::move(imported.watchedApps),
                        .collections = std::move(imported.collections),
                        .entries = std::move(imported.entries)};
        const bool isNothing =
            added.watchedApps.empty() && added.collections.empty() && added.entries.empty();
        return isNothing ? EditStep() : takingOut(std::move(added));
      }};
}

EditStep changingNothing() {
  return {[](WriteTransaction&) { return changingNothing(); }};
}

EditStep together(std::vector<EditStep> steps) {
  return {[steps = std::move(steps)](WriteTransaction& transaction) {
    std::vector<EditStep> undoing;
    for (const EditStep& step : steps) {
      if (EditStep undo = step.run(transaction)) undoing.insert(undoing.begin(), std::move(undo));
    }
    return undoing.empty() ? EditStep() : together(std::move(undoing));
  }};
}

}  // namespace quillet
