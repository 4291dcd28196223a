// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deal_rows.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <array>

#include "analysis/recorded_price.h"
#include "desktop/models/time_words.h"
#include "library/cached_summary.h"
#include "library/price_seed_import.h"
#include "library/watched_apps.h"
#include "store/records/itunes_app.h"
#include "store/records/seed_manifest.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Deals", text); }

constexpr std::array kSorts{
    SortChoice{"drop", QT_TRANSLATE_NOOP("Rows", "Biggest Drop"), nullptr},
    SortChoice{"newest", QT_TRANSLATE_NOOP("Rows", "Newest"), nullptr},
    SortChoice{"price", QT_TRANSLATE_NOOP("Rows", "Price"), nullptr},
    SortChoice{"name", QT_TRANSLATE_NOOP("Rows", "Name"), nullptr},
};
constexpr std::array kOrders{DealOrder::biggestDrop, DealOrder::newest, DealOrder::price,
                             DealOrder::name};
static_assert(kOrders.size() == kSorts.size());

DealOrder orderOf(std::string_view id) {
  const auto found = std::ranges::find(kSorts, id, &SortChoice::id);
  return found == kSorts.end() ? DealOrder::biggestDrop
                               : kOrders.at(static_cast<std::size_t>(found - kSorts.begin()));
}

UtcOffsetAt utc() {
  return [](Instant) { return std::chrono::seconds(0); };
}

QDate dateIn(Instant when, const UtcOffsetAt& zone) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(when + zone(when));
  return QDateTime::fromSecsSinceEpoch(seconds.time_since_epoch().count(), Qt::UTC).date();
}

QString dayText(Instant moment) {
  return QLocale().toString(dateIn(moment, utc()), QStringLiteral("d MMM yyyy"));
}

/// Published prices are of a day, wherever somebody is; our own of a moment.
QString changedText(const Deal& deal, const RowContext& context) {
  const UtcOffsetAt zone = deal.edition.empty() ? context.zone : utc();
  if (dateIn(deal.changedOn, zone) == dateIn(context.now, context.zone)) return tr("today");
  return dateText(deal.changedOn, context.now, zone);
}

QString aboveLowest(const Deal& deal) {
  if (deal.lowestPrice <= 0) return tr("was free before");
  const double percent = (deal.nowPrice - deal.lowestPrice) / deal.lowestPrice * 100;
  const QString amount =
      percent < 1 ? QLocale().toString(percent, 'g', 1) : QLocale().toString(percent, 'f', 0);
  return tr("%1\u00a0% above its lowest").arg(amount);
}

QString momentOf(Instant next, Instant now, const UtcOffsetAt& zone) {
  const qint64 days = dateIn(now, zone).daysTo(dateIn(next, zone));
  const QString time = clockText(next, zone);
  if (days <= 0) return tr("today %1").arg(time);
  if (days == 1) return tr("tomorrow %1").arg(time);
  return dateText(next, now, zone) + u' ' + time;
}

}  // namespace

RowTable dealsTable() {
  return {.layout = {.hasSparkline = true, .hasDealColumns = true},
          .sorts = kSorts,
          .empty = {"tag", QT_TRANSLATE_NOOP("Rows", "No price drops."), ""}};
}

DealQuery dealQueryOf(const DealPlace& place, const RowView& view, const std::string& storefront) {
  const auto has = [&](std::string_view chip) {
    return std::ranges::find(view.chips, chip) != view.chips.end();
  };
  DealQuery query;
  query.country = place.country.value_or(storefront);
  query.platform = place.platform;
  query.minimumDrop = place.minimumDrop;
  query.order = orderOf(view.sort);
  query.pick = {has("free"), has("lowest"), has("watched"), has("chart"),
                view.text.simplified().toStdString()};
  return query;
}

std::map<AppKey, DealAside> readDealAsides(SQLite::Database& database,
                                           const std::vector<AppKey>& apps) {
  std::map<AppKey, DealAside> asides;
  for (const CachedSummary& cached : summariesOf(database, apps)) {
    DealAside& aside = asides[keyOf(cached)];
    aside.artwork = cached.artworkUrl512.value_or("");
    aside.category = plainLine(cached.primaryGenreName);
  }
  for (const AppKey& app : watchedAmong(database, apps)) asides[app].isWatched = true;
  return asides;
}

AppRow dealRow(const Deal& deal, const RowContext& context, const LocaleFormats& formats) {
  AppRow row;
  row.key.app = keyOf(deal);
  row.platform = deal.kind == kMacSoftwareKind ? Platform::mac : Platform::iphone;
  row.name = nameLine(deal.name.value_or(""));
  row.seller = plainLine(deal.seller);
  row.price = priceCell({}, deal.nowPrice, deal.currency, formats);
  row.price.move = PriceMove::down;
  row.price.asOf = parseInternetDate(deal.edition).value_or(deal.changedOn);
  row.was = priceCell({}, deal.wasPrice, deal.currency, formats).text;
  row.aside = percentText(deal.wasPrice, deal.nowPrice);
  row.changePercent = -deal.percentOff;
  const bool isLowest = deal.nowPrice <= deal.lowestPrice + kPriceTolerance;
  row.marks.setFlag(RowMark::atLowest, isLowest);
  if (!isLowest) row.lowText = aboveLowest(deal);
  row.time = changedText(deal, context);
  row.added = deal.changedOn;
  row.folded = foldedText({row.name, row.seller});
  return row;
}

void takeAside(AppRow& row, const DealAside& aside) {
  row.marks.setFlag(RowMark::watched, aside.isWatched);
  row.artwork = aside.artwork;
  row.detail.clear();
  if (aside.category.isEmpty()) return;
  row.detail =
      row.seller.isEmpty() ? aside.category : row.seller + QStringLiteral(" · ") + aside.category;
}

DealReading readDeals(SQLite::Database& database, const DealQuery& query,
                      const RowContext& context) {
  const LocaleFormats formats(context.locale);
  DealReading reading;
  std::vector<AppKey> apps;
  for (const Deal& deal : dealsOf(database, query)) {
    reading.rows.push_back(dealRow(deal, context, formats));
    apps.push_back(keyOf(deal));
  }
  const std::map<AppKey, DealAside> asides = readDealAsides(database, apps);
  for (AppRow& row : reading.rows) {
    const auto aside = asides.find(row.key.app);
    if (aside != asides.end()) takeAside(row, aside->second);
  }
  const DealQuery all{.country = query.country, .platform = {}};
  reading.all = dealCount(database, all);
  const bool isWhole = query.first == 0 && reading.rows.size() < query.count;
  reading.shown =
      isWhole ? static_cast<std::int64_t>(reading.rows.size()) : dealCount(database, query);
  if (const auto record = seedImportOf(database, query.country)) {
    reading.wasImported = true;
    reading.recorded = parseInternetDate(record->stamp);
  }
  return reading;
}

QString recordedText(const std::optional<Instant>& recorded, const PriceDataState& state,
                     Instant now, const UtcOffsetAt& zone) {
  if (state.isReading && !state.share) return tr("Reading price data…");
  if (state.isReading)
    return tr("Reading price data: %1\u00a0%").arg(QLocale().toString(*state.share * 100, 'f', 0));
  const QString next = state.next ? momentOf(*state.next, now, zone) : QString();
  if (!recorded) return next.isEmpty() ? QString() : tr("Next look %1").arg(next);
  const QString text = tr("Prices recorded %1").arg(dayText(*recorded));
  if (isOldLook(state.looked, now))
    return tr("%1, last looked at %2").arg(text, dayText(*state.looked));
  return next.isEmpty() ? text : tr("%1 · next look %2").arg(text, next);
}

}  // namespace quillet
