// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_import.h"

#include <fmt/format.h>

#include <set>
#include <string_view>
#include <unordered_map>

#include "base/text.h"
#include "library/collections.h"
#include "library/row_sets.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

using Apps = std::set<AppKey>;

/// What a library holds, and what the items looked at so far would add to it.
class Holdings {
 public:
  explicit Holdings(SQLite::Database& database) {
    for (const WatchedApp& app : watchedApps(database)) watched_.insert(keyOf(app));
    std::unordered_map<RowId, Apps*> byKey;
    // Collections of one name count as one: the library's own export adds nothing to it.
    for (const AppCollection& collection : quillet::collections(database))
      byKey[collection.id] = &collections_[collection.name];
    for (const CollectionEntry& entry : allEntries(database)) {
      const auto apps = byKey.find(entry.collection.value_or(0));
      if (apps != byKey.end()) apps->second->insert(keyOf(entry));
    }
  }

  ImportFate take(const WatchedItem& item) { return fateOf(watched_.insert(keyOf(item)).second); }

  CollectionPreview take(const CollectionItem& item) {
    const auto [place, isNew] = collections_.try_emplace(item.name);
    CollectionPreview preview{fateOf(isNew), {}};
    for (const EntryItem& entry : item.entries)
      preview.entries.push_back(fateOf(place->second.insert(keyOf(entry)).second));
    return preview;
  }

 private:
  static ImportFate fateOf(bool isNew) {
    return isNew ? ImportFate::added : ImportFate::alreadyPresent;
  }

  Apps watched_;
  std::unordered_map<std::string, Apps> collections_;
};

void count(ImportCounts& counts, std::size_t& added, ImportFate fate) {
  ++(fate == ImportFate::added ? added : counts.alreadyPresent);
}

ImportCounts countsOf(const ImportPreview& preview) {
  ImportCounts counts;
  for (const ImportFate fate : preview.watchlist) count(counts, counts.watchedApps, fate);
  for (const CollectionPreview& collection : preview.collections) {
    if (collection.itself == ImportFate::added) ++counts.collections;
    for (const ImportFate fate : collection.entries) count(counts, counts.collectedApps, fate);
  }
  return counts;
}

/// What the rows of both kinds of items have.
template <typename Row, typename Item>
Row appRowOf(const Item& item) {
  Row row;
  row.trackId = item.trackId;
  row.country = item.country;
  row.platformRaw = item.platform;
  row.name = item.name;
  row.addedAt = item.addedAt;
  return row;
}

WatchedApp rowOf(const WatchedItem& item) {
  auto row = appRowOf<WatchedApp>(item);
  row.priceWhenAdded = row.currentPrice = item.priceWhenAdded;
  row.targetPrice = item.targetPrice;
  row.alertOnAnyDrop = item.alertOnAnyDrop;
  row.alertOnFree = item.alertOnFree;
  row.alertOnNewVersion = item.alertOnNewVersion;
  return row;
}

CollectionEntry rowOf(const EntryItem& item) {
  auto row = appRowOf<CollectionEntry>(item);
  row.note = item.note;
  return row;
}

/// The rows of those items that are to be added, the last one first: of apps that were added at one
/// moment the newest row is listed first.
template <typename Item>
auto newRows(const std::vector<Item>& items, const std::vector<ImportFate>& fates) {
  std::vector<decltype(rowOf(items.front()))> rows;
  for (std::size_t i = items.size(); i-- > 0;) {
    if (fates[i] == ImportFate::added) rows.push_back(rowOf(items[i]));
  }
  return rows;
}

/// Imports collections, one after the other.
class CollectionImporter {
 public:
  CollectionImporter(WriteTransaction& transaction, LibraryImport& imported, Instant now)
      : transaction_(transaction), imported_(imported), now_(now) {
    // The oldest of one name takes what comes.
    for (const auto& row : selectRows<AppCollection>(transaction.database, "ORDER BY Z_PK"))
      keys_.emplace(row.name, row.id);
  }

  void import(const CollectionItem& item, const CollectionPreview& preview) {
    const RowId key = keyOfCollection(item);
    const auto rows = newRows(item.entries, preview.entries);
    if (rows.empty()) return;
    const auto added = addEntries(transaction_, key, rows);
    imported_.entries.insert(imported_.entries.end(), added.begin(), added.end());
  }

 private:
  RowId keyOfCollection(const CollectionItem& item) {
    const auto [place, isNew] = keys_.try_emplace(item.name);
    if (isNew) {
      place->second = addCollection(transaction_, {0, item.name, item.symbolName, now_});
      imported_.collections.push_back(place->second);
    }
    return place->second;
  }

  WriteTransaction& transaction_;
  LibraryImport& imported_;
  Instant now_;
  std::unordered_map<std::string, RowId> keys_;
};

void addPart(std::vector<std::string>& parts, std::size_t count, std::string_view what,
             std::string_view ofMany) {
  if (count > 0) parts.push_back(fmt::format("{} {}{}", count, what, count == 1 ? "" : ofMany));
}

}  // namespace

std::string reportLine(const ImportCounts& counts) {
  std::vector<std::string> parts;
  addPart(parts, counts.watchedApps, "watched app", "s");
  addPart(parts, counts.collections, "collection", "s");
  addPart(parts, counts.collectedApps, "collected app", "s");
  addPart(parts, counts.alreadyPresent, "already present", "");
  return parts.empty() ? "Nothing to import." : fmt::format("Imported {}.", join(parts, ", "));
}

ImportPreview previewImport(SQLite::Database& database, const LibraryExport& document) {
  Holdings holdings(database);
  ImportPreview preview;
  for (const WatchedItem& item : document.watchlist)
    preview.watchlist.push_back(holdings.take(item));
  for (const CollectionItem& item : document.collections)
    preview.collections.push_back(holdings.take(item));
  preview.counts = countsOf(preview);
  return preview;
}

LibraryImport importLibrary(WriteTransaction& transaction, const LibraryExport& document,
                            Instant now) {
  const ImportPreview preview = previewImport(transaction.database, document);
  LibraryImport imported{preview.counts, {}, {}, {}};
  imported.watchedApps = watchApps(transaction, newRows(document.watchlist, preview.watchlist));
  CollectionImporter importer(transaction, imported, now);
  for (std::size_t i = 0; i < document.collections.size(); ++i)
    importer.import(document.collections[i], preview.collections[i]);
  return imported;
}

}  // namespace quillet
