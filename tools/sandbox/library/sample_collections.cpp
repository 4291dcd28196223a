// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>

#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/row_sets.h"
#include "sandbox/library/sample_lists.h"
#include "sandbox/library/sample_source.h"

namespace quillet::sandbox {

namespace {

using std::chrono::days;

struct CollectionSketch {
  std::string_view name;
  std::string_view symbol;
  int genre;  ///< of its apps; 0: it has none
  std::size_t apps;
};

constexpr std::array<CollectionSketch, 5> kCollections{{
    {"For the new Mac", "laptopcomputer", 6002, 12},
    {"Writing", "pencil", 6007, 9},
    {"Photo & picture frames", "camera", 6008, 7},
    {"Kids 🎈", "gamecontroller", 6014, 5},
    {"Some day", "folder", 0, 0},
}};

/// In turn; most apps have none.
constexpr std::array<std::string_view, 7> kNotes{
    "Ask Amara whether the family plan covers the old iPad.",
    "",
    "Wait for the sale in November. Was half the price last year.",
    "",
    "",
    "Export works, sync does not.\nTry again after 3.0.",
    "",
};

}  // namespace

void writeCollections(WriteTransaction& library, const SampleStore& store) {
  int age = 300;
  for (const CollectionSketch& sketch : kCollections) {
    age -= 50;
    AppCollection collection;
    collection.name = sketch.name;
    collection.symbolName = sketch.symbol;
    collection.createdAt = store.today() - days(age);
    const RowId key = addCollection(library, collection);
    const auto isOfGenre = [&](const AppSketch& app) { return app.genres.front() == sketch.genre; };
    for (const MetApp& app : bestMet(store, Storefront::us, Shelf::mac, sketch.apps, isOfGenre)) {
      const int number = age--;
      CollectionEntry entry =
          collectionEntryOf(app.record, sourceOf(app, store.today() - days(number)));
      entry.note = kNotes[static_cast<std::size_t>(number) % kNotes.size()];
      addEntries(library, key, {entry});
      // Its page was open then, which is forgotten by now.
      const CachedApp page = cachedAppOf(app.described, sourceOf(app, entry.addedAt));
      recordView(library, page, entry.addedAt);
      forgetViews(library, {keyOf(page)});
    }
  }
}

}  // namespace quillet::sandbox
