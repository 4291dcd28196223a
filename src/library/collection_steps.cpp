// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/collection_steps.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillet {

namespace {

std::optional<CollectionEntry> entryOf(SQLite::Database& database, RowId collection,
                                       const AppKey& app) {
  for (CollectionEntry& entry : entriesOfApp(database, app)) {
    if (entry.collection == collection) return std::move(entry);
  }
  return {};
}

/// Without their keys, the oldest first, so that they are read in the same order again.
std::vector<CollectionEntry> copiesOf(std::vector<CollectionEntry> entries) {
  for (CollectionEntry& entry : entries) entry.id = 0;
  std::ranges::reverse(entries);
  return entries;
}

}  // namespace

EditStep duplicatingCollection(RowId collection, Instant when, CopyName name) {
  return {[collection, when, name = std::move(name)](WriteTransaction& transaction) {
    const std::vector<AppCollection> all = collections(transaction.database);
    const auto found = std::ranges::find(all, collection, &AppCollection::id);
    if (found == all.end()) return EditStep();
    std::vector<std::string> taken;
    std::ranges::transform(all, std::back_inserter(taken), &AppCollection::name);
    const AppCollection copy{0, name(found->name, taken), found->symbolName, when};
    return addingCollection(copy, copiesOf(entriesOf(transaction.database, collection)))
        .run(transaction);
  }};
}

EditStep movingEntries(RowId from, RowId to, std::vector<AppKey> apps) {
  return {[from, to, apps = std::move(apps)](WriteTransaction& transaction) {
    std::vector<CollectionEntry> moved;
    std::vector<RowId> left;
    std::vector<EditStep> steps;
    for (const AppKey& app : apps) {
      const auto entry = entryOf(transaction.database, from, app);
      if (!entry || from == to) continue;
      left.push_back(entry->id);
      const auto there = entryOf(transaction.database, to, app);
      if (!there) moved.push_back(*entry);
      if (there && there->note.empty()) steps.push_back(settingNote(there->id, entry->note));
    }
    std::ranges::reverse(moved);
    steps.push_back(addingEntries(to, copiesOf(std::move(moved))));
    steps.push_back(removingEntries(std::move(left)));
    return together(std::move(steps)).run(transaction);
  }};
}

EditStep noting(RowId collection, AppKey app, std::string note) {
  return {
      [collection, app = std::move(app), note = std::move(note)](WriteTransaction& transaction) {
        const auto entry = entryOf(transaction.database, collection, app);
        return entry ? settingNote(entry->id, note).run(transaction) : EditStep();
      }};
}

}  // namespace quillet
