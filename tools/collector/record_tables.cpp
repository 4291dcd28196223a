// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/record_tables.h"

#include <fmt/format.h>

#include <array>

#include "base/errors.h"

namespace quillet {

namespace {

// Stored; never change what a revision means, add another.
constexpr std::int64_t kRevision = 2;

/// What of an app's prices is published no more: they began anew.
constexpr const char* kFormerSeries =
    "CREATE TABLE former_series (country TEXT NOT NULL, track_id BIGINT NOT NULL, "
    "since BIGINT NOT NULL, currency TEXT NOT NULL, kind TEXT NOT NULL, "
    "released BIGINT NOT NULL, seen BIGINT NOT NULL, PRIMARY KEY (country, track_id, since))";
constexpr const char* kCollectors =
    "CREATE TABLE collectors (worker TEXT NOT NULL, began BIGINT NOT NULL, PRIMARY KEY (worker))";
constexpr const char* kWanted =
    "CREATE TABLE wanted (track_id BIGINT NOT NULL, PRIMARY KEY (track_id))";

// Times are milliseconds since 1970, UTC. A round that is under way has "ended" 0. What stands in
// "lookups" is the round under way alone, or what failed of the last one; its sums go to "rounds"
// when it ends. While a round is "preparing", its lookups are questions that find apps; those
// found are "wanted", in all of the round's "storefronts". Questions that failed are kept beside
// the lookups then, under negative numbers. "collectors" are those at work, and some that have
// ended. An app's prices are published from "since" on, if it has "moved". "seen" is the time of
// the last answer that had it (0: not known), "gone" that of the first one since that had it not
// (0: it is sold). "stamp" is the time of a storefront's newest change, "looked" that of its last
// answer (0: not known); "published" is of no use any more. "record" has one row: when and by what
// collectors were last "troubled", and when one last had "given_up" (0: never).
constexpr auto kSmallRows = std::to_array<const char*>({
    "CREATE TABLE rounds (id BIGINT NOT NULL, began BIGINT NOT NULL, ended BIGINT NOT NULL, "
    "lookups BIGINT NOT NULL, failed BIGINT NOT NULL, found BIGINT NOT NULL, "
    "missing BIGINT NOT NULL, changed BIGINT NOT NULL, preparing SMALLINT NOT NULL DEFAULT 0, "
    "storefronts TEXT NOT NULL DEFAULT '', PRIMARY KEY (id))",
    "CREATE TABLE apps (country TEXT NOT NULL, track_id BIGINT NOT NULL, name TEXT NOT NULL, "
    "seller TEXT NOT NULL, currency TEXT NOT NULL, kind TEXT NOT NULL, "
    "price DOUBLE PRECISION NOT NULL, released BIGINT NOT NULL, since BIGINT NOT NULL, "
    "moved SMALLINT NOT NULL, seen BIGINT NOT NULL DEFAULT 0, gone BIGINT NOT NULL DEFAULT 0, "
    "PRIMARY KEY (country, track_id))",
    "CREATE TABLE prices (country TEXT NOT NULL, track_id BIGINT NOT NULL, seen BIGINT NOT NULL, "
    "price DOUBLE PRECISION NOT NULL, PRIMARY KEY (country, track_id, seen))",
    kFormerSeries,
    "CREATE TABLE storefronts (country TEXT NOT NULL, stamp BIGINT NOT NULL, "
    "published BIGINT NOT NULL, looked BIGINT NOT NULL DEFAULT 0, PRIMARY KEY (country))",
    kWanted,
    kCollectors,
});

/// A row holds a hundred IDs: too long for the table's end of SqlDialect.
constexpr const char* kLookups =
    "CREATE TABLE lookups (round BIGINT NOT NULL, number BIGINT NOT NULL, country TEXT NOT NULL, "
    "ids TEXT NOT NULL, state SMALLINT NOT NULL, attempts SMALLINT NOT NULL, "
    "worker TEXT NOT NULL, leased_until BIGINT NOT NULL, found BIGINT NOT NULL, "
    "missing BIGINT NOT NULL, changed BIGINT NOT NULL, question TEXT NOT NULL DEFAULT '', "
    "PRIMARY KEY (round, number))";

/// All of the above that tell what was recorded, or is to be; who is at it now is of no use in a
/// copy, and "record" is made anew with each.
constexpr auto kTables = std::to_array<RecordTable>({
    {"rounds", "id"},
    {"apps", "country, track_id"},
    {"prices", "country, track_id, seen"},
    {"former_series", "country, track_id, since"},
    {"storefronts", "country"},
    {"lookups", "round, number"},
    {"wanted", "track_id"},
});

/// The record's revision; 0 where there is none.
std::int64_t revisionOf(SqlTransaction& transaction, const SqlDialect& dialect) {
  bool isThere = false;
  transaction.each(std::string(dialect.findTable), {std::string("record")},
                   [&](const SqlRow&) { isThere = true; });
  if (!isThere) return 0;
  std::int64_t revision = 0;
  transaction.each("SELECT revision FROM record", {},
                   [&](const SqlRow& row) { revision = row.integer(0); });
  if (revision > kRevision) throw DatabaseError("The record was made by a newer collector.");
  return revision;
}

void makeTables(SqlTransaction& transaction, const SqlDialect& dialect) {
  transaction.run(
      "CREATE TABLE record (revision BIGINT NOT NULL, troubled BIGINT NOT NULL DEFAULT 0, "
      "trouble TEXT NOT NULL DEFAULT '', given_up BIGINT NOT NULL DEFAULT 0)");
  for (const char* table : kSmallRows) transaction.run(table + std::string(dialect.tableEnd));
  transaction.run(kLookups);
  transaction.run("CREATE INDEX lookups_by_state ON lookups (state, attempts, number)");
  transaction.run("CREATE INDEX moved_apps ON apps (country, track_id) WHERE moved = 1");
  transaction.run("INSERT INTO record (revision) VALUES ($1)", {kRevision});
}

/// From revision 1.
void bringUpToDate(SqlTransaction& transaction, const SqlDialect& dialect) {
  for (const char* column : {"seen", "gone"}) {
    transaction.run(
        fmt::format("ALTER TABLE apps ADD COLUMN {} BIGINT NOT NULL DEFAULT 0", column));
  }
  transaction.run("ALTER TABLE rounds ADD COLUMN preparing SMALLINT NOT NULL DEFAULT 0");
  transaction.run("ALTER TABLE rounds ADD COLUMN storefronts TEXT NOT NULL DEFAULT ''");
  transaction.run("ALTER TABLE lookups ADD COLUMN question TEXT NOT NULL DEFAULT ''");
  for (const char* table : {kFormerSeries, kWanted, kCollectors})
    transaction.run(table + std::string(dialect.tableEnd));
  transaction.run("ALTER TABLE storefronts ADD COLUMN looked BIGINT NOT NULL DEFAULT 0");
  for (const char* column :
       {"troubled BIGINT NOT NULL DEFAULT 0", "trouble TEXT NOT NULL DEFAULT ''",
        "given_up BIGINT NOT NULL DEFAULT 0"}) {
    transaction.run(fmt::format("ALTER TABLE record ADD COLUMN {}", column));
  }
  // Else the next answer about an app's other record would not be told apart.
  transaction.run("UPDATE apps SET seen = COALESCE((SELECT MAX(began) FROM rounds), 0)");
  transaction.run("UPDATE record SET revision = $1", {kRevision});
}

}  // namespace

std::span<const RecordTable> recordTables() { return kTables; }

RecordState makeRecordTables(SqlTransaction& transaction, const SqlDialect& dialect) {
  const std::int64_t revision = revisionOf(transaction, dialect);
  if (revision == kRevision) return RecordState::asItWas;
  if (revision == 0) {
    makeTables(transaction, dialect);
    return RecordState::made;
  }
  bringUpToDate(transaction, dialect);
  return RecordState::broughtUpToDate;
}

RecordState makeRecordTables(SqlDatabase& database) {
  return inTransaction(database, SqlAccess::alone, [&](SqlTransaction& transaction) {
    return makeRecordTables(transaction, database.dialect());
  });
}

void requireRecord(SqlDatabase& database) {
  const auto transaction = database.begin(SqlAccess::read);
  const std::int64_t revision = revisionOf(*transaction, database.dialect());
  if (revision == kRevision) return;
  throw DatabaseError(
      revision == 0 ? "The database holds no record of prices: quillet-collector init makes one."
                    : "The record was made by an older collector: quillet-collector init brings it "
                      "up to date.");
}

}  // namespace quillet
