// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/price_removal.h"

#include <fmt/format.h>

#include <algorithm>

#include "collector/record_tables.h"

namespace quillet {

namespace {

/// What keys of tables begin with whose rows are about an app.
constexpr std::string_view kKeyOfApps = "country, track_id";

/// An app with the prices of its present series, oldest first.
struct Series {
  std::string name;
  bool hasMoved = false;
  std::vector<RemovedPrice> prices;
};

std::optional<Series> seriesOf(SqlTransaction& transaction, const SqlValues& app) {
  std::optional<Series> series;
  transaction.each(
      "SELECT name, moved FROM apps WHERE country = $1 AND track_id = $2", app,
      [&](const SqlRow& row) { series = Series{row.text(0), row.integer(1) != 0, {}}; });
  if (!series) return {};
  transaction.each(
      "SELECT p.seen, p.price FROM prices p JOIN apps a ON a.country = p.country AND "
      "a.track_id = p.track_id AND p.seen >= a.since "
      "WHERE p.country = $1 AND p.track_id = $2 ORDER BY p.seen",
      app, [&](const SqlRow& row) {
        series->prices.push_back({series->name, restored(row.integer(0)), row.real(1)});
      });
  return series;
}

/// Splits off what is to go: prices of the span, and those that are like the one before then.
std::vector<RemovedPrice> takenFrom(Series& series, TimeSpan span) {
  std::vector<RemovedPrice> kept;
  std::vector<RemovedPrice> taken;
  for (RemovedPrice& price : series.prices) {
    const bool isMeant = price.seen >= span.begin && price.seen < span.end;
    price.isRepeated = !isMeant && !kept.empty() && kept.back().price == price.price;
    (isMeant || price.isRepeated ? taken : kept).push_back(price);
  }
  series.prices = std::move(kept);
  return taken;
}

void moveStamp(SqlTransaction& transaction, const std::string& country, Instant now) {
  transaction.run("UPDATE storefronts SET stamp = $2 WHERE country = $1 AND stamp < $2",
                  {country, stored(std::chrono::floor<std::chrono::seconds>(now))});
}

void removeAppRow(SqlTransaction& transaction, const SqlValues& app) {
  transaction.run("DELETE FROM apps WHERE country = $1 AND track_id = $2", app);
}

void setApp(SqlTransaction& transaction, const SqlValues& app, const Series& series) {
  if (series.prices.empty()) return removeAppRow(transaction, app);
  SqlValues values = app;
  values.emplace_back(series.prices.back().price);
  values.emplace_back(std::int64_t{series.prices.size() > 1 ? 1 : 0});
  transaction.run("UPDATE apps SET price = $3, moved = $4 WHERE country = $1 AND track_id = $2",
                  values);
}

/// The newest price before $2 of the present series is the one that held then.
std::int64_t removePricesBefore(SqlTransaction& transaction, const std::string& country,
                                Instant day) {
  return transaction.run(
      "DELETE FROM prices WHERE country = $1 AND seen < $2 AND NOT EXISTS (SELECT 1 FROM apps a "
      "WHERE a.country = prices.country AND a.track_id = prices.track_id "
      "AND prices.seen >= a.since AND NOT EXISTS (SELECT 1 FROM prices later "
      "WHERE later.country = prices.country AND later.track_id = prices.track_id "
      "AND later.seen > prices.seen AND later.seen < $2))",
      {country, stored(day)});
}

/// Apps of which one price is left have not moved.
void setMoved(SqlTransaction& transaction, const std::string& country) {
  transaction.run(
      "UPDATE apps SET moved = 0 WHERE country = $1 AND moved = 1 AND (SELECT COUNT(*) FROM prices "
      "p WHERE p.country = apps.country AND p.track_id = apps.track_id AND p.seen >= apps.since) "
      "< 2",
      {country});
}

}  // namespace

void keepOthersFromRecording(SqlTransaction& transaction, const SqlDialect& dialect) {
  if (!dialect.lockTable.empty())
    transaction.run(fmt::format(fmt::runtime(dialect.lockTable), "apps"));
}

std::vector<RemovedPrice> removePrices(SqlTransaction& transaction, const std::string& country,
                                       std::int64_t trackId, TimeSpan span, Instant now) {
  const SqlValues app{country, trackId};
  auto series = seriesOf(transaction, app);
  if (!series) return {};
  std::vector<RemovedPrice> taken = takenFrom(*series, span);
  const bool isAnyMeant =
      std::ranges::any_of(taken, [](const auto& price) { return !price.isRepeated; });
  if (!isAnyMeant) return {};
  for (const RemovedPrice& price : taken) {
    transaction.run("DELETE FROM prices WHERE country = $1 AND track_id = $2 AND seen = $3",
                    {country, trackId, stored(price.seen)});
  }
  setApp(transaction, app, *series);
  if (series->hasMoved) moveStamp(transaction, country, now);
  return taken;
}

std::optional<RemovedApp> removeApp(SqlTransaction& transaction, const std::string& country,
                                    std::int64_t trackId, Instant now) {
  const SqlValues app{country, trackId};
  const auto series = seriesOf(transaction, app);
  if (!series) return {};
  if (series->hasMoved) moveStamp(transaction, country, now);
  RemovedApp removed{series->name};
  for (const RecordTable& table : recordTables()) {
    if (!table.key.starts_with(kKeyOfApps)) continue;
    const std::int64_t rows = transaction.run(
        fmt::format("DELETE FROM {} WHERE country = $1 AND track_id = $2", table.name), app);
    if (table.name == "prices") removed.prices = rows;
  }
  return removed;
}

RemovedAge removeBefore(SqlTransaction& transaction, const std::vector<std::string>& countries,
                        Instant day, Instant now) {
  RemovedAge removed;
  for (const std::string& country : countries) {
    const std::int64_t prices = removePricesBefore(transaction, country, day);
    if (prices == 0) continue;
    removed.prices += prices;
    setMoved(transaction, country);
    moveStamp(transaction, country, now);
  }
  removed.rounds = transaction.run(
      "DELETE FROM rounds WHERE began < $1 AND id < (SELECT MAX(id) FROM rounds)", {stored(day)});
  return removed;
}

}  // namespace quillet
