// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/alerts.h"
#include "library/data_store.h"
#include "library/import_records.h"
#include "library/killed_writers.h"
#include "library/recorded_history.h"

namespace quillet {
namespace {

constexpr const char* kCounter = "counter";  // its stamp is the number of the last change

// Every tenth change is too large for SQLite's cache, so that a kill also meets pages of an open
// transaction in the log.
std::size_t pointsOf(std::int64_t number) { return number % 10 == 0 ? 40'000 : 3; }

/// The change of that number: rows in two tables, and a new stamp of the counter.
void makeChange(WriteTransaction& transaction, std::int64_t number) {
  addAlerts(transaction, {{.trackId = number}});
  const PricePoint point{0, number, "us", 4.99, "USD", {}, false};
  addPricePoints(transaction, std::vector<PricePoint>(pointsOf(number), point));
  recordImport(transaction, {0, kCounter, std::to_string(number), {}});
}

std::int64_t changesIn(SQLite::Database& database) {
  return database.execAndGet("SELECT count(*) FROM ZALERTRECORD").getInt64();
}

Task<> writeImports(std::string file) {
  const auto store = co_await DataStore::open(std::move(file));
  std::int64_t number = co_await store->read(changesIn);
  for (;;) {
    ++number;
    co_await store->change(makeChange, number);
    reportChange(number);
  }
}

std::int64_t lastImport(SQLite::Database& database) {
  const std::int64_t changes = changesIn(database);
  SQLite::Statement points(
      database, "SELECT ZTRACKID, count(*) FROM ZPRICEPOINT GROUP BY ZTRACKID ORDER BY ZTRACKID");
  std::int64_t number = 0;
  while (points.executeStep()) {
    ++number;
    require(points.getColumn(0).getInt64() == number, fmt::format("change {} is missing", number));
    require(static_cast<std::size_t>(points.getColumn(1).getInt64()) == pointsOf(number),
            fmt::format("half of change {} is there", number));
  }
  require(number == changes, fmt::format("{} alerts, but points of {}", changes, number));
  const auto counter = importRecord(database, kCounter);
  require(changes == 0 || (counter && counter->stamp == std::to_string(changes)),
          fmt::format("the counter differs from {} changes", changes));
  return changes;
}

}  // namespace

const KilledWriter kImports{"imports", writeImports, lastImport};

}  // namespace quillet
