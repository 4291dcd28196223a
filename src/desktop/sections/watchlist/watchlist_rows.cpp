// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/watchlist/watchlist_rows.h"

#include <QCoreApplication>
#include <array>
#include <limits>

#include "analysis/recorded_price.h"
#include "library/price_series.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kVersionIsNew = 30 * 24h;

QString tr(const char* text) { return QCoreApplication::translate("Watchlist", text); }

constexpr double kNever = std::numeric_limits<double>::infinity();

// Those that are ordered by a figure which they lack stand last.
constexpr std::array kSorts{
    SortChoice{"added", QT_TRANSLATE_NOOP("Rows", "Added"),
               [](const AppRow& left, const AppRow& right) { return left.added > right.added; }},
    SortChoice{"name", QT_TRANSLATE_NOOP("Rows", "Name"),
               [](const AppRow& left, const AppRow& right) { return left.folded < right.folded; }},
    SortChoice{"change", QT_TRANSLATE_NOOP("Rows", "Price Change"),
               [](const AppRow& left, const AppRow& right) {
                 return left.changePercent.value_or(kNever) < right.changePercent.value_or(kNever);
               }},
    SortChoice{"target", QT_TRANSLATE_NOOP("Rows", "Nearest to Target"),
               [](const AppRow& left, const AppRow& right) {
                 return left.toTarget.value_or(kNever) < right.toTarget.value_or(kNever);
               }},
    SortChoice{"lowest", QT_TRANSLATE_NOOP("Rows", "Lowest First"),
               [](const AppRow& left, const AppRow& right) {
                 return left.marks.testFlag(RowMark::atLowest) &&
                        !right.marks.testFlag(RowMark::atLowest);
               }},
    SortChoice{
        "checked", QT_TRANSLATE_NOOP("Rows", "Checked"),
        [](const AppRow& left, const AppRow& right) { return left.checked > right.checked; }},
};

constexpr std::array kOffers{
    EmptyOffer{QT_TRANSLATE_NOOP("Rows", "Import Library…"), "import-library"}};

constexpr std::array kChips{
    ChipChoice{"dropped", QT_TRANSLATE_NOOP("Rows", "Dropped"), RowMark::dropped},
    ChipChoice{"lowest", QT_TRANSLATE_NOOP("Rows", "At lowest"), RowMark::atLowest},
    ChipChoice{"target", QT_TRANSLATE_NOOP("Rows", "Target set"), RowMark::hasTarget},
    ChipChoice{"free", QT_TRANSLATE_NOOP("Rows", "Free now"), RowMark::isFree},
    ChipChoice{"version", QT_TRANSLATE_NOOP("Rows", "New version"), RowMark::newVersion},
    ChipChoice{"purchases", QT_TRANSLATE_NOOP("Rows", "In-app price changed"),
               RowMark::purchasesChanged},
    ChipChoice{"gone", QT_TRANSLATE_NOOP("Rows", "No longer sold"), RowMark::notSold},
    ChipChoice{"mac", QT_TRANSLATE_NOOP("Rows", "Mac"), RowMark::forMac},
    ChipChoice{"phone", QT_TRANSLATE_NOOP("Rows", "iPhone & iPad"), RowMark::forPhone},
};

bool hasNewVersion(const std::optional<CachedSummary>& cached, Instant now) {
  return cached && cached->currentVersionReleaseDate &&
         now - *cached->currentVersionReleaseDate < kVersionIsNew;
}

/// How the price moved, and how far from the target it is; nothing where it is unknown.
void addMoves(AppRow& row, const WatchedApp& app) {
  if (!row.price.amount) return;
  const double now = *row.price.amount;
  if (const auto added = knownPriceWhenAdded(app)) {
    row.price.move = moveOf(*added, now);
    if (*added > 0) row.changePercent = (now - *added) / *added * 100;
  }
  const auto target = knownTargetPrice(app);
  if (target && now > 0) row.toTarget = std::max(0.0, (now - *target) / now);
}

RowMarks marksOf(const AppRow& row, const WatchedRow& watched, Instant now) {
  RowMarks marks;
  marks.setFlag(RowMark::dropped, row.price.move == PriceMove::down);
  marks.setFlag(RowMark::hasTarget, knownTargetPrice(watched.app).has_value());
  marks.setFlag(RowMark::isFree, row.price.amount == 0 && !watched.app.isUnavailable);
  marks.setFlag(RowMark::newVersion, hasNewVersion(watched.cached, now));
  marks.setFlag(RowMark::notSold, watched.app.isUnavailable);
  marks.setFlag(row.platform == Platform::mac ? RowMark::forMac : RowMark::forPhone);
  return marks;
}

QString targetText(const AppRow& row, double target, const LocaleFormats& formats) {
  const bool isHit = row.price.amount && *row.price.amount <= target;
  return (isHit ? tr("target %1 hit") : tr("target %1"))
      .arg(amountLike(row.price, target, formats));
}

/// What changed most, in the few words that a row has room for.
QString asideOf(const AppRow& row, const WatchedApp& app, const LocaleFormats& formats) {
  if (app.isUnavailable) return tr("no longer sold");
  if (row.price.move != PriceMove::none) {
    const QString percent = percentText(*knownPriceWhenAdded(app), *row.price.amount);
    return percent.isEmpty() ? tr("was free") : percent;
  }
  const auto target = knownTargetPrice(app);
  return target ? targetText(row, *target, formats) : QString();
}

std::vector<AppRow> rowsOf(const std::vector<WatchedRow>& watched, const RowContext& context) {
  const LocaleFormats formats(context.locale);
  std::vector<AppRow> rows;
  rows.reserve(watched.size());
  for (const WatchedRow& each : watched) rows.push_back(watchedAppRow(each, context, formats));
  return rows;
}

std::vector<LateFacts> factsOf(SQLite::Database& database, const std::vector<LateRow>& rows) {
  const std::vector<AppKey> apps = appsOf(rows);
  std::map<AppKey, LateFacts> facts;
  for (const AppPriceLow& each : priceLowsOf(database, apps))
    if (each.changes > 0)
      facts[each.key].lowest = RecordedPrice{each.low.lastSeen, each.low.amount, each.currency};
  for (const AppPurchaseCounts& each : purchaseCountsOf(database, apps))
    facts[each.key].purchasesChanged = each.purchases.changed;
  std::vector<LateFacts> list;
  for (auto& [app, each] : facts) {
    each.app = app;
    list.push_back(std::move(each));
  }
  return list;
}

TouchedRows touchedBy(const LibraryChanges& changes) {
  std::set<AppKey> apps = changes.watchedApps;
  apps.insert(changes.cachedApps.begin(), changes.cachedApps.end());
  apps.insert(changes.prices.begin(), changes.prices.end());
  apps.insert(changes.purchasePrices.begin(), changes.purchasePrices.end());
  return apps;
}

}  // namespace

AppRow watchedAppRow(const WatchedRow& watched, const RowContext& context,
                     const LocaleFormats& formats) {
  const WatchedApp& app = watched.app;
  AppRow row = rowOfApp(app);
  addCached(row, watched.cached);
  row.price = watchedPrice(app, formats);
  addMoves(row, app);
  row.aside = asideOf(row, app, formats);
  row.marks = marksOf(row, watched, context.now);
  row.added = app.addedAt;
  row.checked = app.lastCheckedAt;
  row.folded = foldedText({row.name, row.seller, plainLine(app.country)});
  return row;
}

void takeWatchedFacts(AppRow& row, const LateFacts& facts) {
  const auto& lowest = facts.lowest;
  row.marks.setFlag(RowMark::atLowest, lowest && row.price.amount &&
                                           areComparable(lowest->currency, row.price.currency) &&
                                           isSamePrice(*row.price.amount, lowest->amount));
  row.marks.setFlag(RowMark::purchasesChanged, facts.purchasesChanged > 0);
  // What the row itself tells comes first.
  const bool tellsMore = row.marks & (RowMarks(RowMark::notSold) | RowMark::hasTarget);
  if (row.price.move != PriceMove::none || tellsMore) return;
  row.aside.clear();
  if (facts.purchasesChanged == 1) row.aside = tr("1 in-app price");
  if (facts.purchasesChanged > 1) row.aside = tr("%1 in-app prices").arg(facts.purchasesChanged);
}

RowSource watchlistSource(const RowContext& context) {
  return {.all = [context](auto& database) { return rowsOf(watchedRows(database), context); },
          .ofApps =
              [context](auto& database, const auto& apps) {
                return rowsOf(watchedRowsOf(database, apps), context);
              },
          .touched = touchedBy,
          .late = factsOf,
          .take = takeWatchedFacts};
}

RowTable watchlistTable() {
  return {.layout = {.hasSparkline = true, .hasStars = true},
          .sorts = kSorts,
          .chips = kChips,
          .empty = {"eye", QT_TRANSLATE_NOOP("Rows", "Nothing on the watchlist yet."),
                    QT_TRANSLATE_NOOP("Rows", "Watch an app to hear when it gets cheaper."),
                    QT_TRANSLATE_NOOP("Rows", "Search"), "go-search", kOffers}};
}

}  // namespace quillet
