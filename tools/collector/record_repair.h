// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <stdexcept>

#include "collector/sql_database.h"

namespace quillet {

/// That the record says of itself that it was made later than now: a clock was wrong then, or is.
class RecordInTheFuture : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Throws RecordInTheFuture, and DatabaseError.
void requirePast(SqlDatabase& database, Instant now);

/// What was taken out of a record.
struct TakenOut {
  std::int64_t rounds = 0;
  std::int64_t prices = 0;
};

/// Takes out whatever was recorded later than now, so that each app is as it was last seen before;
/// the next look records what it costs. `now` is asked once nobody records any more: what others
/// did until then is not of the future. Throws DatabaseError.
TakenOut takeOutTheFuture(SqlDatabase& database, const std::function<Instant()>& now);

}  // namespace quillet
