// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/recorded_history.h"

#include <chrono>
#include <optional>
#include <set>

#include "library/row_sets.h"

namespace quillet {
namespace {

using Day = std::chrono::sys_days;

template <typename Point>
void add(WriteTransaction& transaction, const std::vector<Point>& points, std::set<AppKey>& apps) {
  RowInserter<Point> inserter(transaction.database, OnConflict::fail);
  for (const Point& point : points) {
    inserter.insert(point);
    apps.insert(keyOf(point));
  }
}

Day dayOf(const PricePoint& point) { return std::chrono::floor<std::chrono::days>(point.date); }

/// The days on which one app at a time has a price recorded.
class RecordedDays {
 public:
  explicit RecordedDays(SQLite::Database& database) : query_(database, kOfApp) {}

  void turnTo(const AppKey& app) {
    if (app_ == app) return;
    app_ = app;
    days_.clear();
    for (const PricePoint& point : query_.all(app.trackId, app.country)) days_.insert(dayOf(point));
  }

  /// Whether the day is new; it is recorded from then on.
  bool add(Day day) { return days_.insert(day).second; }

 private:
  RowQuery<PricePoint> query_;
  std::optional<AppKey> app_;
  std::set<Day> days_;
};

}  // namespace

std::vector<PricePoint> pricePointsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<PricePoint>(database, apps, kByDate);
}

std::vector<PurchasePricePoint> purchasePointsOf(SQLite::Database& database,
                                                 const std::vector<AppKey>& apps) {
  return rowsOfApps<PurchasePricePoint>(database, apps, kByDate);
}

std::vector<RankPoint> rankPointsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<RankPoint>(database, apps, kByDate);
}

void addPricePoints(WriteTransaction& transaction, const std::vector<PricePoint>& points) {
  add(transaction, points, transaction.changes.prices);
}

void addPurchasePoints(WriteTransaction& transaction,
                       const std::vector<PurchasePricePoint>& points) {
  add(transaction, points, transaction.changes.purchasePrices);
}

void addRankPoints(WriteTransaction& transaction, const std::vector<RankPoint>& points) {
  add(transaction, points, transaction.changes.ranks);
}

std::size_t importPricePoints(WriteTransaction& transaction,
                              const std::vector<PricePoint>& points) {
  RowInserter<PricePoint> inserter(transaction.database, OnConflict::fail);
  RecordedDays recorded(transaction.database);
  std::size_t added = 0;
  for (const PricePoint& point : points) {
    const AppKey app = keyOf(point);
    recorded.turnTo(app);
    if (!recorded.add(dayOf(point))) continue;
    inserter.insert(point);
    transaction.changes.prices.insert(app);
    ++added;
  }
  return added;
}

}  // namespace quillet
