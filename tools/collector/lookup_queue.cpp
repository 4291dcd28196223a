// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/lookup_queue.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

// Stored; never change.
enum class LookupState : std::int64_t { waiting = 0, leased = 1, done = 2, failed = 3 };

constexpr int kMostAttempts = 3;

std::int64_t numberOf(LookupState state) { return static_cast<std::int64_t>(state); }

Round roundIn(const SqlRow& row) {
  Round round{.id = row.integer(0),
              .began = restored(row.integer(1)),
              .lookups = row.integer(3),
              .done = row.integer(3),
              .failed = row.integer(4),
              .sums = {row.integer(5), row.integer(6), row.integer(7)}};
  if (row.integer(2) != 0) round.ended = restored(row.integer(2));
  if (row.integer(8) != 0) round.preparation = Preparation{};
  return round;
}

/// Fills in how far a preparation is.
void addProgress(SqlTransaction& transaction, std::int64_t round, Preparation& preparation) {
  transaction.each("SELECT state, COUNT(*) FROM lookups WHERE round = $1 GROUP BY state", {round},
                   [&](const SqlRow& row) {
                     const auto state = static_cast<LookupState>(row.integer(0));
                     preparation.questions += row.integer(1);
                     if (state >= LookupState::done) preparation.done += row.integer(1);
                   });
  transaction.each("SELECT COUNT(*) FROM wanted", {},
                   [&](const SqlRow& row) { preparation.apps = row.integer(0); });
}

/// Fills in what is done of a round under way.
void addProgress(SqlTransaction& transaction, Round& round) {
  round.done = round.failed = 0;
  transaction.each(
      "SELECT state, COUNT(*), CAST(SUM(found) AS BIGINT), CAST(SUM(missing) AS BIGINT), "
      "CAST(SUM(changed) AS BIGINT) FROM lookups WHERE round = $1 AND question = '' "
      "GROUP BY state",
      {round.id}, [&](const SqlRow& row) {
        const auto state = static_cast<LookupState>(row.integer(0));
        if (state < LookupState::done) return;
        round.done += row.integer(1);
        if (state == LookupState::failed) round.failed = row.integer(1);
        round.sums.found += row.integer(2);
        round.sums.missing += row.integer(3);
        round.sums.changed += row.integer(4);
      });
}

std::vector<std::int64_t> idsIn(const std::string& list) {
  std::vector<std::int64_t> ids;
  for (const std::string_view piece : split(list, ',')) {
    if (const auto id = parseWhole(piece)) ids.push_back(*id);
  }
  return ids;
}

/// Changes the lookup's row, if it is this worker's. The values of `change` begin with $5.
bool changeLeased(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker,
                  std::string_view change, const SqlValues& more) {
  SqlValues values{lookup.round, lookup.number, worker, numberOf(LookupState::leased)};
  values.insert(values.end(), more.begin(), more.end());
  return transaction.run(fmt::format("UPDATE lookups SET {} WHERE round = $1 AND number = $2 "
                                     "AND worker = $3 AND state = $4",
                                     change),
                         values) == 1;
}

/// And those that only a wrong clock can have made.
void freeExpiredLeases(SqlTransaction& transaction, Instant now) {
  transaction.run(
      "UPDATE lookups SET state = $1, worker = '' WHERE state = $2 AND (leased_until <= $3 OR "
      "leased_until > $4)",
      {numberOf(LookupState::waiting), numberOf(LookupState::leased), stored(now),
       stored(now + kLease + kClockSpread)});
}

}  // namespace

std::optional<Round> newestRound(SqlTransaction& transaction) {
  std::optional<Round> round;
  transaction.each(
      "SELECT id, began, ended, lookups, failed, found, missing, changed, preparing FROM rounds "
      "ORDER BY id DESC LIMIT 1",
      {}, [&](const SqlRow& row) { round = roundIn(row); });
  if (!round || round->ended) return round;
  if (round->preparation) {
    addProgress(transaction, round->id, *round->preparation);
  } else {
    addProgress(transaction, *round);
  }
  return round;
}

void beginRound(SqlTransaction& transaction, const std::vector<LookupRequest>& requests,
                Instant now) {
  const auto last = newestRound(transaction);
  const std::int64_t id = last ? last->id + 1 : 1;
  transaction.run("DELETE FROM lookups");
  transaction.run(
      "INSERT INTO rounds (id, began, ended, lookups, failed, found, missing, changed) "
      "VALUES ($1, $2, 0, $3, 0, 0, 0, 0)",
      {id, stored(now), static_cast<std::int64_t>(requests.size())});
  addLookups(transaction, id, 1, requests);
}

void addLookups(SqlTransaction& transaction, std::int64_t round, std::int64_t first,
                const std::vector<LookupRequest>& requests) {
  std::int64_t number = first;
  for (const LookupRequest& request : requests) {
    transaction.run(
        "INSERT INTO lookups (round, number, country, ids, state, attempts, worker, leased_until, "
        "found, missing, changed, question) VALUES ($1, $2, $3, $4, $5, 0, '', 0, 0, 0, 0, $6)",
        {round, number++, request.country, fmt::format("{}", fmt::join(request.ids, ",")),
         numberOf(LookupState::waiting), request.question});
  }
}

std::optional<Lookup> takeLookup(SqlTransaction& transaction, SqlDialect dialect,
                                 const std::string& worker, Instant now) {
  freeExpiredLeases(transaction, now);
  std::optional<Lookup> lookup;
  transaction.each(
      fmt::format(
          "SELECT round, number, country, ids, question, attempts FROM lookups WHERE state = $1 "
          "ORDER BY attempts, number LIMIT 1{}",
          dialect.skipLocked),
      {numberOf(LookupState::waiting)}, [&](const SqlRow& row) {
        lookup = Lookup{row.integer(0),
                        row.integer(1),
                        {row.text(2), idsIn(row.text(3)), row.text(4)},
                        row.integer(5)};
      });
  if (!lookup) return {};
  transaction.run(
      "UPDATE lookups SET state = $3, worker = $4, leased_until = $5 "
      "WHERE round = $1 AND number = $2",
      {lookup->round, lookup->number, numberOf(LookupState::leased), worker, stored(now + kLease)});
  return lookup;
}

bool finishLookup(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker,
                  const LookupResult& result) {
  return changeLeased(transaction, lookup, worker,
                      "state = $5, found = $6, missing = $7, changed = $8",
                      {numberOf(LookupState::done), result.found, result.missing, result.changed});
}

void giveBack(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker) {
  changeLeased(transaction, lookup, worker, "state = $5, worker = ''",
               {numberOf(LookupState::waiting)});
}

void noteFailure(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker) {
  changeLeased(
      transaction, lookup, worker,
      "attempts = attempts + 1, worker = '', "
      "state = CASE WHEN attempts + 1 >= $5 THEN CAST($6 AS SMALLINT) "
      "ELSE CAST($7 AS SMALLINT) END",
      {std::int64_t{kMostAttempts}, numberOf(LookupState::failed), numberOf(LookupState::waiting)});
}

void giveUp(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker) {
  changeLeased(transaction, lookup, worker, "state = $5, worker = ''",
               {numberOf(LookupState::failed)});
}

std::vector<LookupRequest> failedLookups(SqlTransaction& transaction) {
  std::vector<LookupRequest> failed;
  transaction.each(
      "SELECT country, ids FROM lookups WHERE state = $1 AND question = '' ORDER BY round, number",
      {numberOf(LookupState::failed)},
      [&](const SqlRow& row) { failed.push_back({row.text(0), idsIn(row.text(1))}); });
  return failed;
}

std::vector<LookupRequest> failedQuestions(SqlTransaction& transaction) {
  std::vector<LookupRequest> failed;
  transaction.each(
      "SELECT country, question FROM lookups WHERE state = $1 AND question <> '' "
      "ORDER BY country, question",
      {numberOf(LookupState::failed)},
      [&](const SqlRow& row) { failed.push_back({row.text(0), {}, row.text(1)}); });
  return failed;
}

std::vector<LeaseHolder> leaseHolders(SqlTransaction& transaction) {
  std::vector<LeaseHolder> holders;
  transaction.each(
      "SELECT worker, MIN(leased_until) FROM lookups WHERE state = $1 GROUP BY worker ORDER BY "
      "worker",
      {numberOf(LookupState::leased)},
      [&](const SqlRow& row) { holders.push_back({row.text(0), restored(row.integer(1))}); });
  return holders;
}

void endLeases(SqlTransaction& transaction, const std::string& worker) {
  transaction.run("UPDATE lookups SET state = $1, worker = '' WHERE state = $2 AND worker = $3",
                  {numberOf(LookupState::waiting), numberOf(LookupState::leased), worker});
}

void keepFailedLookups(SqlTransaction& transaction) {
  transaction.run("DELETE FROM lookups WHERE state <> $1", {numberOf(LookupState::failed)});
}

bool endRound(SqlTransaction& transaction, Instant now) {
  const auto round = newestRound(transaction);
  if (!round || round->ended) return true;
  if (round->preparation || round->done < round->lookups) return false;
  transaction.run(
      "UPDATE rounds SET ended = $2, failed = $3, found = $4, missing = $5, changed = $6 "
      "WHERE id = $1",
      {round->id, stored(now), round->failed, round->sums.found, round->sums.missing,
       round->sums.changed});
  keepFailedLookups(transaction);
  return true;
}

}  // namespace quillet
