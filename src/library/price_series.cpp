// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_series.h"

#include <utility>

#include "library/row_sets.h"

namespace quillet {
namespace {

/// Calls `take(app, prices)` for each app with recorded prices.
template <typename Take>
void forEachSeries(SQLite::Database& database, const std::vector<AppKey>& apps, Take take) {
  RowQuery<PricePoint> query(database, std::string(kOfApp).append(kByDate));
  for (const AppKey& app : apps) {
    auto prices = recordedPrices(query.all(app.trackId, app.country));
    if (!prices.empty()) take(app, std::move(prices));
  }
}

std::vector<RecordedPurchase> recordedPurchases(std::vector<PurchasePricePoint> points) {
  std::vector<RecordedPurchase> records;
  records.reserve(points.size());
  for (PurchasePricePoint& point : points) {
    records.push_back({point.trackId,
                       std::move(point.country),
                       std::move(point.key),
                       std::move(point.name),
                       std::move(point.recurringPeriod),
                       {point.date, point.price, std::move(point.currency)}});
  }
  return records;
}

}  // namespace

std::vector<RecordedPrice> recordedPrices(const std::vector<PricePoint>& points) {
  std::vector<RecordedPrice> prices;
  prices.reserve(points.size());
  for (const PricePoint& point : points)
    prices.push_back({point.date, point.price, point.currency, point.isBackfill});
  return prices;
}

std::vector<AppPriceSeries> priceSeriesOf(SQLite::Database& database,
                                          const std::vector<AppKey>& apps) {
  std::vector<AppPriceSeries> all;
  forEachSeries(database, apps, [&](const AppKey& app, std::vector<RecordedPrice> prices) {
    auto others = otherCurrencies(prices);
    all.push_back({app, inLatestCurrency(std::move(prices)), std::move(others)});
  });
  return all;
}

std::vector<AppPriceLow> priceLowsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  std::vector<AppPriceLow> all;
  forEachSeries(database, apps, [&](const AppKey& app, std::vector<RecordedPrice> recorded) {
    const auto prices = inLatestCurrency(std::move(recorded));
    all.push_back({app, lowOf(prices), changesOf(prices).count, prices.back().currency});
  });
  return all;
}

std::vector<std::string> storefrontsWithPrices(SQLite::Database& database, std::int64_t trackId) {
  // One step of the index for each, however many prices there are.
  SQLite::Statement next(database,
                         "SELECT min(ZCOUNTRY) FROM ZPRICEPOINT WHERE ZTRACKID = ?1 AND "
                         "ZCOUNTRY > ?2");
  std::vector<std::string> all;
  while (true) {
    next.reset();
    next.bind(1, trackId);
    next.bind(2, all.empty() ? std::string() : all.back());
    if (!next.executeStep() || next.getColumn(0).isNull()) return all;
    all.push_back(next.getColumn(0).getString());
  }
}

std::vector<PurchaseSeries> purchaseSeriesOf(SQLite::Database& database, const AppKey& app) {
  RowQuery<PurchasePricePoint> query(database, std::string(kOfApp).append(kByDate));
  return purchaseSeries(recordedPurchases(query.all(app.trackId, app.country)));
}

std::vector<AppPurchaseCounts> purchaseCountsOf(SQLite::Database& database,
                                                const std::vector<AppKey>& apps) {
  RowQuery<PurchasePricePoint> query(database, std::string(kOfApp).append(kByDate));
  std::vector<AppPurchaseCounts> all;
  for (const AppKey& app : apps) {
    PurchaseCounts& counts = all.emplace_back(AppPurchaseCounts{app, {}}).purchases;
    for (const PurchaseSeries& series :
         purchaseSeries(recordedPurchases(query.all(app.trackId, app.country))))
      addTo(counts, series);
  }
  return all;
}

}  // namespace quillet
