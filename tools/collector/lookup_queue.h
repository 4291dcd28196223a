// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "collector/sql_database.h"

namespace quillet {

// The work of a round, in the record itself: what is to be looked up, and who is at it. Any number
// of collectors take from it; each lookup is leased to one at a time, until it is done or the lease
// ends. At most one round is under way. All functions throw DatabaseError.

/// What is asked of the store, about one storefront: for apps, or which apps there are.
struct LookupRequest {
  std::string country;
  std::vector<std::int64_t> ids;
  std::string question =
      {};  ///< that finds apps, as chart_question reads it; empty: asks for `ids`
};

/// A lookup that is leased to this collector.
struct Lookup {
  std::int64_t round = 0;
  std::int64_t number = 0;
  LookupRequest request;
  std::int64_t attempts = 0;  ///< before this one
};

/// What a lookup found.
struct LookupResult {
  std::int64_t found = 0;    ///< apps with a price
  std::int64_t missing = 0;  ///< apps that the storefront does not sell
  std::int64_t changed = 0;  ///< prices
};

/// How far the preparation of a round is.
struct Preparation {
  std::int64_t questions = 0;
  std::int64_t done = 0;  ///< failed ones included
  std::int64_t apps = 0;  ///< found so far
};

/// A round and, once it has ended, its sums; until then those of the lookups that are done.
struct Round {
  std::int64_t id = 0;
  Instant began;
  std::optional<Instant> ended;
  std::optional<Preparation> preparation;  ///< until the round has its lookups
  std::int64_t lookups = 0;
  std::int64_t done = 0;    ///< failed ones included
  std::int64_t failed = 0;  ///< given up
  LookupResult sums;
};

/// How long a lookup is its collector's. Longer than any takes, with its retries and its wait for
/// the request budget.
inline constexpr std::chrono::minutes kLease{10};

/// How much clocks of several machines may differ.
inline constexpr std::chrono::minutes kClockSpread{5};

/// The round under way, or else the last one; absent before the first.
[[nodiscard]] std::optional<Round> newestRound(SqlTransaction& transaction);

/// Begins a round with these. To be called with SqlAccess::alone when none is under way.
void beginRound(SqlTransaction& transaction, const std::vector<LookupRequest>& requests,
                Instant now);

/// Adds to the lookups of a round; `first` is the number of the first.
void addLookups(SqlTransaction& transaction, std::int64_t round, std::int64_t first,
                const std::vector<LookupRequest>& requests);

/// The next lookup that nobody is at, leased to `worker`; those that were tried least come first.
/// Absent when all that are left are leased to others.
[[nodiscard]] std::optional<Lookup> takeLookup(SqlTransaction& transaction, SqlDialect dialect,
                                               const std::string& worker, Instant now);

/// Marks the lookup as done. False, with nothing changed, when the lease ended and another took it.
[[nodiscard]] bool finishLookup(SqlTransaction& transaction, const Lookup& lookup,
                                const std::string& worker, const LookupResult& result);

/// Gives the lookup back as it was.
void giveBack(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker);

/// Gives it back as tried once more; after the third time it has failed for this round.
void noteFailure(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker);

/// Gives the lookup up at once.
void giveUp(SqlTransaction& transaction, const Lookup& lookup, const std::string& worker);

/// Those for apps that were given up in the newest round.
[[nodiscard]] std::vector<LookupRequest> failedLookups(SqlTransaction& transaction);

/// Those that were to find apps, likewise.
[[nodiscard]] std::vector<LookupRequest> failedQuestions(SqlTransaction& transaction);

/// Who has leased lookups, and until when its first lease lasts.
struct LeaseHolder {
  std::string worker;
  Instant until;
};
[[nodiscard]] std::vector<LeaseHolder> leaseHolders(SqlTransaction& transaction);

/// Takes away what the worker leased.
void endLeases(SqlTransaction& transaction, const std::string& worker);

/// Takes out all but those that failed, which are kept until the next round begins.
void keepFailedLookups(SqlTransaction& transaction);

/// Ends the round under way if nothing of it is left. To be called with SqlAccess::alone. Returns
/// whether no round is under way any more.
[[nodiscard]] bool endRound(SqlTransaction& transaction, Instant now);

}  // namespace quillet
