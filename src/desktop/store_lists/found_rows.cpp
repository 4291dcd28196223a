// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/found_rows.h"

#include <QCoreApplication>
#include <QStringList>
#include <array>
#include <cmath>

#include "analysis/app_build.h"
#include "analysis/monetization.h"
#include "analysis/price_series.h"
#include "desktop/models/row_parts.h"
#include "library/owned_apps.h"
#include "library/price_series.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kMoveIsNews = 30 * 24h;

QString tr(const char* text) { return QCoreApplication::translate("Search", text); }

constexpr SortChoice choiceOf(SortOrder sort, const char* text) {
  return {textOf(kSortOrderWords, sort), text, nullptr};
}

constexpr std::array kSorts{
    choiceOf(SortOrder::relevance, QT_TRANSLATE_NOOP("Rows", "Relevance")),
    choiceOf(SortOrder::priceAscending, QT_TRANSLATE_NOOP("Rows", "Price: Low to High")),
    choiceOf(SortOrder::priceDescending, QT_TRANSLATE_NOOP("Rows", "Price: High to Low")),
    choiceOf(SortOrder::rating, QT_TRANSLATE_NOOP("Rows", "Rating")),
    choiceOf(SortOrder::popularity, QT_TRANSLATE_NOOP("Rows", "Popularity")),
    choiceOf(SortOrder::recentlyUpdated, QT_TRANSLATE_NOOP("Rows", "Recently Updated")),
    choiceOf(SortOrder::newest, QT_TRANSLATE_NOOP("Rows", "Newest")),
    choiceOf(SortOrder::name, QT_TRANSLATE_NOOP("Rows", "Name")),
};

PriceCell priceOf(const ITunesApp& app, const LocaleFormats& formats) {
  return recordPrice(app.formattedPrice, app.price, app.currency, formats);
}

/// A price against the one that it came from lately; none where that is long ago.
PriceMove moveOfRecorded(double amount, const std::vector<RecordedPrice>& prices, Instant now) {
  for (std::size_t i = prices.size(); i > 0; --i) {
    const RecordedPrice& before = prices[i - 1];
    if (isSamePrice(before.amount, amount)) continue;
    const Instant changed = i < prices.size() ? prices[i].when.value_or(now) : now;
    return now - changed <= kMoveIsNews ? moveOf(before.amount, amount) : PriceMove::none;
  }
  return PriceMove::none;
}

/// As the watchlist has it for what is watched.
PriceMove moveOfRow(const AppRow& row, const FoundContext& context) {
  if (!row.price.amount) return PriceMove::none;
  const auto watched = context.library.watched.find(row.key.app);
  if (watched != context.library.watched.end()) {
    const auto before = knownPriceWhenAdded(watched->second);
    if (!before || !areComparable(watched->second.currency, row.price.currency))
      return PriceMove::none;
    return moveOf(*before, *row.price.amount);
  }
  const auto prices = context.library.prices.find(row.key.app);
  if (prices == context.library.prices.end()) return PriceMove::none;
  if (!areComparable(prices->second.back().currency, row.price.currency)) return PriceMove::none;
  return moveOfRecorded(*row.price.amount, prices->second, context.now);
}

/// Of an app whose price never changed, the lowest one says nothing.
bool isAtLowest(const AppRow& row, const FoundContext& context) {
  const auto found = context.library.prices.find(row.key.app);
  if (found == context.library.prices.end() || !row.price.amount) return false;
  const std::vector<RecordedPrice>& prices = found->second;
  if (changesOf(prices).count == 0) return false;
  if (!areComparable(prices.back().currency, row.price.currency)) return false;
  const double low = lowOf(prices).amount;
  return *row.price.amount < low || isSamePrice(*row.price.amount, low);
}

/// What it takes beside the price, in a few words; empty where it is not known.
class MoneyText {
 public:
  MoneyText(const ITunesApp& app, const LocaleFormats& formats) : app_(app), formats_(formats) {
    if (!app.insideCost) return;
    perYear_ = amountText(app.insideCost->perYear);
    unlock_ = amountText(app.insideCost->unlock);
  }

  [[nodiscard]] QString text() const {
    switch (monetizationModel(app_)) {
      case MonetizationModel::paidOnce: return tr("pay once");
      case MonetizationModel::oneTimeOnly: return unlockText();
      case MonetizationModel::extrasOnly: return tr("extras");
      case MonetizationModel::subscriptionPresent: return tr("subscription");
      case MonetizationModel::hasPurchases: return tr("in-app purchases");
      case MonetizationModel::subscriptionOnly: return subscriptionText();
      case MonetizationModel::subscriptionOrOneTime: return eitherText();
      case MonetizationModel::free:
      case MonetizationModel::unknown: break;
    }
    return {};
  }

 private:
  [[nodiscard]] QString amountText(const std::optional<double>& amount) const {
    if (!amount) return {};
    return QString::fromStdString(formats_.currency(*amount, app_.insideCost->currency));
  }
  [[nodiscard]] QString unlockText() const {
    return unlock_.isEmpty() ? tr("one-time unlock") : tr("unlock %1").arg(unlock_);
  }
  [[nodiscard]] QString subscriptionText() const {
    return perYear_.isEmpty() ? tr("subscription") : tr("%1/year").arg(perYear_);
  }
  /// Beside a price the subscription is the other way; beside none the unlock is what it costs.
  [[nodiscard]] QString eitherText() const {
    if (app_.price.value_or(0) == 0) return unlockText();
    return perYear_.isEmpty() ? tr("or subscription") : tr("or %1/year").arg(perYear_);
  }

  const ITunesApp& app_;
  const LocaleFormats& formats_;
  QString perYear_;
  QString unlock_;
};

void addRating(AppRow& row, const ITunesApp& app, const LocaleFormats& formats) {
  const std::int64_t count = app.userRatingCount.value_or(0);
  if (!app.averageUserRating || count <= 0) return;
  row.ratingHalves = static_cast<int>(std::lround(*app.averageUserRating * 2));
  row.ratingCount = QString::fromStdString(formats.integer(count));
}

/// What the app is to the user, before its seller.
QString detailOf(const AppRow& row, const FoundInLibrary& library) {
  QStringList parts;
  if (library.owned.contains(row.key.app.trackId)) parts << tr("owned");
  if (library.watched.contains(row.key.app)) parts << tr("watched");
  if (parts.empty()) return {};
  parts << row.seller;
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" · "));
}

}  // namespace

FoundInLibrary readFoundInLibrary(SQLite::Database& database, const std::vector<AppKey>& apps,
                                  const std::optional<ChartQuery>& chart, Instant day) {
  FoundInLibrary known;
  known.owned = ownedTrackIds(database);
  for (WatchedApp& app : watchedAppsOf(database, apps))
    known.watched.insert_or_assign(keyOf(app), std::move(app));
  for (AppPriceSeries& series : priceSeriesOf(database, apps))
    known.prices.insert_or_assign(series.key, std::move(series.prices));
  if (chart) known.chart = readKnownChart(database, *chart, day);
  return known;
}

std::vector<RowKey> keysOf(const FoundApps& found) {
  std::vector<RowKey> keys;
  std::map<std::int64_t, RowId> seen;
  for (const ITunesApp& app : found.apps)
    keys.push_back({{app.trackId, found.country}, seen[app.trackId]++});
  return keys;
}

AppRow foundRow(const ITunesApp& app, const RowKey& key, Platform asked,
                const FoundContext& context) {
  AppRow row;
  row.key = key;
  row.platform = describesBuild(app, asked) ? asked : ownPlatform(app);
  row.name = nameLine(app.trackName);
  row.seller = plainLine(app.sellerName ? app.sellerName : app.artistName);
  row.artwork = app.artworkUrl512.value_or(app.artworkUrl100.value_or(""));
  addRating(row, app, context.formats);
  row.price = priceOf(app, context.formats);
  row.price.move = moveOfRow(row, context);
  row.aside = MoneyText(app, context.formats).text();
  row.marks.setFlag(RowMark::atLowest, isAtLowest(row, context));
  row.detail = detailOf(row, context.library);
  row.folded = foldedText({row.name, row.seller});
  return row;
}

RowTable searchTable() {
  // Of most results no price was recorded, and what is told of sellers needs the room.
  return {.layout = {.hasSparkline = true, .sparklineFrom = 560, .hasStars = true},
          .sorts = kSorts,
          .chips = {},
          .empty = {"search", QT_TRANSLATE_NOOP("Rows", "Nothing found."),
                    QT_TRANSLATE_NOOP("Rows", "Try other words.")}};
}

std::string sortIdOf(SortOrder sort) { return std::string(textOf(kSortOrderWords, sort)); }

SortOrder sortOfId(std::string_view id) {
  return valueOf(kSortOrderWords, id).value_or(SortOrder::relevance);
}

}  // namespace quillet
