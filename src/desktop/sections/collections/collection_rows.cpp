// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/collections/collection_rows.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <array>
#include <ranges>

#include "desktop/models/collection_symbol.h"
#include "desktop/models/price_sums.h"
#include "library/collections.h"
#include "library/library_counts.h"

namespace quillet {

namespace {

constexpr std::size_t kPictures = 4;  // of what a collection holds

QString tr(const char* text) { return QCoreApplication::translate("Collections", text); }

constexpr SortChoice kByName{
    "name", QT_TRANSLATE_NOOP("Rows", "Name"),
    [](const AppRow& left, const AppRow& right) { return left.folded < right.folded; }};

constexpr std::array kSorts{
    SortChoice{"added", QT_TRANSLATE_NOOP("Rows", "Added"),
               [](const AppRow& left, const AppRow& right) { return left.added > right.added; }},
    kByName,
    SortChoice{"price", QT_TRANSLATE_NOOP("Rows", "Price"),
               [](const AppRow& left, const AppRow& right) {
                 // Unknown prices last.
                 return left.price.amount &&
                        (!right.price.amount || *left.price.amount < *right.price.amount);
               }},
};
constexpr std::array kOverviewSorts{kByName};

QString countText(std::size_t count) {
  return count == 1 ? tr("1 app") : tr("%1 apps").arg(QLocale().toString(qulonglong{count}));
}

QString totalsText(const std::vector<EntryRow>& entries, const LocaleFormats& formats) {
  std::vector<KnownPrice> prices;
  for (const EntryRow& each : entries) {
    const auto& cached = each.cached;
    prices.emplace_back(cached ? cached->price : std::nullopt,
                        cached ? cached->currency : std::nullopt);
  }
  const QStringList parts = QStringList(countText(entries.size())) + sumParts(prices, formats);
  return parts.join(QStringLiteral(" · "));
}

AppRow overviewRow(const CollectionCount& collection, const std::vector<EntryRow>& entries,
                   const LocaleFormats& formats) {
  AppRow row;
  row.key.row = collection.key;
  row.name = collectionLine(collection.name);
  row.symbol = iconOfSymbol(collection.symbolName);
  row.detail = totalsText(entries, formats);
  for (const EntryRow& each : entries | std::views::take(kPictures))
    row.pictures.push_back(each.entry.artworkUrl.value_or(""));
  row.folded = foldedText({row.name});
  return row;
}

TouchedRows touchedBy(const LibraryChanges& changes) {
  if (changes.collections.empty() && changes.cachedApps.empty() && changes.prices.empty())
    return NoRows{};
  return AllRows{};
}

}  // namespace

AppRow entryRow(const EntryRow& entry, const LocaleFormats& formats) {
  AppRow row = rowOfApp(entry.entry);
  addCached(row, entry.cached);
  row.note = shownNote(plainLine(entry.entry.note));
  if (const auto& cached = entry.cached) {
    row.price = priceCell(cached->formattedPrice, cached->price, cached->currency, formats);
    row.checked = cached->updatedAt;
  }
  row.added = entry.entry.addedAt;
  row.folded = foldedText({row.name, row.seller, row.note});
  return row;
}

RowSource collectionSource(const UserLocale& locale, RowId collection) {
  return {.all =
              [locale, collection](auto& database) {
                const LocaleFormats formats(locale);
                std::vector<AppRow> rows;
                for (const EntryRow& each : entryRows(database, collection))
                  rows.push_back(entryRow(each, formats));
                return rows;
              },
          .touched = touchedBy,
          .late = pricesWhenAdded,
          .take = takeMove};
}

RowTable collectionTable() {
  return {
      .layout = {.hasNotes = true},
      .sorts = kSorts,
      .empty = {"collection", QT_TRANSLATE_NOOP("Rows", "Nothing in this collection yet."),
                QT_TRANSLATE_NOOP("Rows", "Drag apps here, or press Ctrl+Shift+L on any app.")}};
}

RowSource overviewSource(const UserLocale& locale) {
  return {.all =
              [locale](auto& database) {
                const LocaleFormats formats(locale);
                std::vector<AppRow> rows;
                for (const CollectionCount& each : collectionCounts(database))
                  rows.push_back(overviewRow(each, entryRows(database, each.key), formats));
                return rows;
              },
          .touched = touchedBy};
}

RowTable overviewTable() {
  return {.layout = {},
          .sorts = kOverviewSorts,
          .empty = {"collection", QT_TRANSLATE_NOOP("Rows", "No collections yet."),
                    QT_TRANSLATE_NOOP("Rows", "Collections keep apps together, with notes."),
                    QT_TRANSLATE_NOOP("Rows", "New Collection…"), "new-collection"}};
}

std::optional<CollectionHead> readCollectionHead(SQLite::Database& database, RowId collection,
                                                 const UserLocale& locale) {
  const std::vector<AppCollection> all = collections(database);
  const auto found = std::ranges::find(all, collection, &AppCollection::id);
  if (found == all.end()) return {};
  return CollectionHead{collectionLine(found->name), iconOfSymbol(found->symbolName),
                        totalsText(entryRows(database, collection), LocaleFormats(locale))};
}

}  // namespace quillet
