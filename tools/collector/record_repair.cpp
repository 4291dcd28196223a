// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/record_repair.h"

#include <fmt/format.h>

#include "collector/lookup_queue.h"
#include "collector/price_removal.h"

namespace quillet {

namespace {

/// Of the app of the row in hand, what was seen by $1 of the series that is published.
constexpr std::string_view kSeen =
    "FROM prices p WHERE p.country = apps.country AND p.track_id = apps.track_id "
    "AND p.seen >= apps.since AND p.seen <= $1";

/// The series that was the app's at $1, where the one of the row in hand began later.
constexpr std::string_view kFormer =
    "FROM former_series f WHERE f.country = apps.country AND f.track_id = apps.track_id "
    "AND f.since <= $1";

void setSeriesBack(SqlTransaction& transaction, const SqlValues& limit) {
  transaction.run(fmt::format("UPDATE apps SET (since, currency, kind, released, seen) = "
                              "(SELECT since, currency, kind, released, seen {0} "
                              "ORDER BY since DESC LIMIT 1) "
                              "WHERE since > $1 AND EXISTS (SELECT 1 {0})",
                              kFormer),
                  limit);
  // Of some that began before, the prices until then are forgotten.
  transaction.run(
      fmt::format("DELETE FROM apps WHERE since > $1 OR NOT EXISTS (SELECT 1 {})", kSeen), limit);
  transaction.run(
      "DELETE FROM former_series WHERE since > $1 OR EXISTS (SELECT 1 FROM apps a "
      "WHERE a.country = former_series.country AND a.track_id = former_series.track_id "
      "AND a.since = former_series.since)",
      limit);
}

void setAppsBack(SqlTransaction& transaction, const SqlValues& limit) {
  transaction.run(
      fmt::format("UPDATE apps SET price = (SELECT p.price {0} ORDER BY p.seen DESC LIMIT 1), "
                  "moved = CASE WHEN (SELECT COUNT(*) {0}) > 1 THEN 1 ELSE 0 END "
                  "WHERE (country, track_id) IN (SELECT country, track_id FROM prices "
                  "WHERE seen > $1)",
                  kSeen),
      limit);
}

/// The latest time that it tells; the epoch for an empty one. A clock may have been wrong when a
/// round began, and in the middle of it.
Instant endOfRecord(SqlTransaction& transaction) {
  Instant end;
  transaction.each(
      "SELECT COALESCE(MAX(at), 0) FROM (SELECT MAX(began) AS at FROM rounds "
      "UNION ALL SELECT MAX(ended) FROM rounds UNION ALL SELECT MAX(stamp) FROM storefronts "
      "UNION ALL SELECT MAX(looked) FROM storefronts) AS times",
      {}, [&](const SqlRow& row) { end = restored(row.integer(0)); });
  return end;
}

}  // namespace

void requirePast(SqlDatabase& database, Instant now) {
  const Instant end = endOfRecord(*database.begin(SqlAccess::read));
  if (end <= now + kClockSpread) return;
  throw RecordInTheFuture(
      fmt::format("It is {}, but the record goes on until {}. If the clock is right, "
                  "'quillet-collector repair' takes out what was recorded later than now.",
                  formatInternetDate(now), formatInternetDate(end)));
}

TakenOut takeOutTheFuture(SqlDatabase& database, const std::function<Instant()>& now) {
  return inTransaction(database, SqlAccess::alone, [&](SqlTransaction& transaction) {
    keepOthersFromRecording(transaction, database.dialect());
    const Instant end = now();
    const SqlValues limit{stored(end)};
    transaction.run("DELETE FROM lookups WHERE round IN (SELECT id FROM rounds WHERE began > $1)",
                    limit);
    transaction.run("UPDATE lookups SET leased_until = $1 WHERE leased_until > $1", limit);
    const TakenOut out{.rounds = transaction.run("DELETE FROM rounds WHERE began > $1", limit)};
    transaction.run("UPDATE rounds SET ended = $1 WHERE ended > $1", limit);
    setSeriesBack(transaction, limit);
    setAppsBack(transaction, limit);
    transaction.run("UPDATE apps SET seen = $1 WHERE seen > $1", limit);
    transaction.run("UPDATE apps SET gone = 0 WHERE gone > $1", limit);
    transaction.run("UPDATE storefronts SET stamp = $1 WHERE stamp > $1",
                    {stored(std::chrono::floor<std::chrono::seconds>(end))});
    transaction.run("UPDATE storefronts SET looked = $1 WHERE looked > $1", limit);
    transaction.run("UPDATE record SET troubled = 0, trouble = '' WHERE troubled > $1", limit);
    transaction.run("UPDATE record SET given_up = 0 WHERE given_up > $1", limit);
    return TakenOut{out.rounds, transaction.run("DELETE FROM prices WHERE seen > $1", limit)};
  });
}

}  // namespace quillet
