// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_series.h"

#include <utility>

#include "library/row_sets.h"

namespace quillet {
namespace {

/// Calls `take(app, prices)` for each app with recorded prices: those that can be compared.
template <typename Take>
void forEachSeries(SQLite::Database& database, const std::vector<AppKey>& apps, Take take) {
  RowQuery<PricePoint> query(database, std::string(kOfApp).append(kByDate));
  for (const AppKey& app : apps) {
    auto prices = inLatestCurrency(recordedPrices(query.all(app.trackId, app.country)));
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
    prices.push_back({point.date, point.price, point.currency});
  return prices;
}

std::vector<AppPriceSeries> priceSeriesOf(SQLite::Database& database,
                                          const std::vector<AppKey>& apps) {
  std::vector<AppPriceSeries> all;
  forEachSeries(database, apps, [&](const AppKey& app, std::vector<RecordedPrice> prices) {
    all.push_back({app, std::move(prices)});
  });
  return all;
}

std::vector<AppPriceLow> priceLowsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  std::vector<AppPriceLow> all;
  forEachSeries(database, apps, [&](const AppKey& app, const std::vector<RecordedPrice>& prices) {
    all.push_back({app, lowOf(prices), changesOf(prices).count, prices.back().currency});
  });
  return all;
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
