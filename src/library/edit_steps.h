// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "library/alerts.h"
#include "library/collections.h"
#include "library/library_import.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {

/// A change of the library that can be undone: it returns the step that undoes it, which in turn
/// returns the one that does it again. Rows come back under their old keys. One that found nothing
/// to change returns an empty step.
struct EditStep {
  std::function<EditStep(WriteTransaction&)> run;

  explicit operator bool() const { return run != nullptr; }
};

/// Watches apps that are not watched yet.
[[nodiscard]] EditStep watching(std::vector<WatchedApp> apps);
[[nodiscard]] EditStep unwatching(std::vector<AppKey> apps);
/// Sets what the user decides; prices stay those that the monitor wrote.
[[nodiscard]] EditStep settingWatches(std::vector<WatchEdit> edits);

[[nodiscard]] EditStep owning(std::vector<OwnedApp> apps);
[[nodiscard]] EditStep disowning(std::vector<AppKey> apps);
[[nodiscard]] EditStep settingOwned(std::vector<OwnedEdit> edits);
[[nodiscard]] EditStep skippingUpdates(std::vector<AppKey> apps, SkipUpdates what);

/// A new collection that holds these; the entries' own collection is not heeded.
[[nodiscard]] EditStep addingCollection(AppCollection collection,
                                        std::vector<CollectionEntry> entries = {});
/// Sets the name and the symbol of the one of that key.
[[nodiscard]] EditStep settingCollection(AppCollection collection);
/// With their entries.
[[nodiscard]] EditStep removingCollections(std::vector<RowId> collections);
[[nodiscard]] EditStep addingEntries(RowId collection, std::vector<CollectionEntry> entries);
[[nodiscard]] EditStep removingEntries(std::vector<RowId> entries);
/// The entries of these apps.
[[nodiscard]] EditStep removingFrom(RowId collection, std::vector<AppKey> apps);
[[nodiscard]] EditStep settingNote(RowId entry, std::string note);

[[nodiscard]] EditStep addingSearch(SavedSearch search);
[[nodiscard]] EditStep settingSearch(SavedSearch search);
[[nodiscard]] EditStep renamingSearch(RowId search, std::string name);
[[nodiscard]] EditStep removingSearches(std::vector<RowId> searches);

[[nodiscard]] EditStep markingAlerts(std::vector<RowId> alerts, ReadState state);
[[nodiscard]] EditStep markingAllAlertsRead();
[[nodiscard]] EditStep removingAlerts(std::vector<RowId> alerts);

/// Forgets that pages of these apps, or of any, were opened.
[[nodiscard]] EditStep forgettingViews(std::vector<AppKey> apps);
[[nodiscard]] EditStep forgettingAllViews();

/// Adds what the document holds and the library does not, and says how much that was, on the thread
/// of the change.
[[nodiscard]] EditStep importing(std::shared_ptr<const LibraryExport> document, Instant now,
                                 std::function<void(const ImportCounts&)> tell);

/// For an edit of something else that is undone along with edits of the library.
[[nodiscard]] EditStep changingNothing();

/// All in this order, as one.
[[nodiscard]] EditStep together(std::vector<EditStep> steps);

}  // namespace quillet
