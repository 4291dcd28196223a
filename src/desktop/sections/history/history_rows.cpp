// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/history/history_rows.h"

#include <QCoreApplication>
#include <array>

#include "desktop/models/time_words.h"
#include "library/cached_apps.h"
#include "store/records/itunes_app.h"

namespace quillet {

namespace {

constexpr std::int64_t kMostShown = 10'000;

constexpr std::array kSorts{
    SortChoice{"seen", QT_TRANSLATE_NOOP("Rows", "Last Seen"),
               [](const AppRow& left, const AppRow& right) { return left.added > right.added; }},
};

std::vector<AppRow> readRows(SQLite::Database& database, const RowContext& context) {
  const LocaleFormats formats(context.locale);
  std::vector<AppRow> rows;
  for (const CachedSummary& app : viewedApps(database, kMostShown))
    rows.push_back(viewedAppRow(app, context, formats));
  return rows;
}

/// Who rests on a row looks at its app once more, which would take it to the top.
void stayWhereSeen(AppRow& row, const AppRow& shown) {
  row.added = shown.added;
  row.day = shown.day;
  row.time = shown.time;
}

TouchedRows touchedBy(const LibraryChanges& changes) {
  if (changes.cachedApps.empty()) return NoRows{};
  return AllRows{};
}

}  // namespace

AppRow viewedAppRow(const CachedSummary& app, const RowContext& context,
                    const LocaleFormats& formats) {
  AppRow row;
  row.key.app = keyOf(app);
  row.platform = app.kind == kMacSoftwareKind ? Platform::mac : Platform::iphone;
  row.name = nameLine(app.name);
  row.seller = plainLine(app.sellerName);
  addCached(row, app);
  row.price = priceCell(app.formattedPrice, app.price, app.currency, formats);
  row.added = app.lastViewedAt;
  const Instant seen = app.lastViewedAt.value_or(Instant{});
  row.day = dayHeading(seen, context.now, context.zone);
  row.time = momentText(seen, context.now, context.zone);
  row.folded = foldedText({row.name, row.seller});
  return row;
}

void takePriceThen(AppRow& row, const LateFacts& facts, const LocaleFormats& formats) {
  takeMove(row, facts);
  row.was.clear();
  if (row.price.move == PriceMove::none) return;
  const QString amount = priceCell({}, facts.then->amount, row.price.currency, formats).text;
  row.was = QCoreApplication::translate("Rows", "was %1").arg(amount);
}

RowSource historySource(const RowContext& context) {
  return {.all = [context](auto& database) { return readRows(database, context); },
          .touched = touchedBy,
          .late = pricesWhenAdded,
          .take = [formats = std::make_shared<LocaleFormats>(context.locale)](
                      AppRow& row, const LateFacts& facts) { takePriceThen(row, facts, *formats); },
          .stay = stayWhereSeen};
}

RowTable historyTable() {
  return {.layout = {.height = 52, .artwork = 36, .hasDays = true},
          .sorts = kSorts,
          .empty = {"clock-history", QT_TRANSLATE_NOOP("Rows", "Nothing looked at yet."),
                    QT_TRANSLATE_NOOP("Rows", "Apps you look at appear here.")}};
}

}  // namespace quillet
