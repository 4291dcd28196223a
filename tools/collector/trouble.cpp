// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/trouble.h"

#include "base/errors.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

constexpr std::chrono::seconds kJustBefore{10};

/// Empty where neither the store nor the way there is the cause.
std::string troubleIn(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const ITunesError& answer) {
    return answer.what();
  } catch (const NetworkError& failure) {
    return failure.kind() == NetworkError::Kind::cancelled ? "" : failure.what();
  } catch (const DecodingError& garbage) {
    return garbage.what();
  } catch (...) {
    return {};
  }
}

}  // namespace

void noteTrouble(SqlDatabase& database, const Trouble& trouble) {
  inTransaction(database, SqlAccess::write, [&](SqlTransaction& transaction) {
    transaction.run("UPDATE record SET troubled = $1, trouble = $2",
                    {stored(trouble.at), trouble.words});
  });
}

void noteGivingUp(SqlDatabase& database, const std::exception_ptr& error, Instant now) {
  const std::string words = troubleIn(error);
  if (words.empty()) return;
  try {
    inTransaction(database, SqlAccess::write, [&](SqlTransaction& transaction) {
      // What was noted just before says more: it names the lookup.
      transaction.run(
          "UPDATE record SET given_up = $1, trouble = CASE WHEN troubled >= $2 THEN trouble "
          "ELSE $3 END, troubled = $1",
          {stored(now), stored(now - kJustBefore), words});
    });
  } catch (const std::exception&) {
    return;
  }
}

Troubles troublesIn(SqlTransaction& transaction) {
  Troubles troubles;
  transaction.each("SELECT troubled, trouble, given_up FROM record", {}, [&](const SqlRow& row) {
    if (row.integer(0) != 0) troubles.last = Trouble{restored(row.integer(0)), row.text(1)};
    if (row.integer(2) != 0) troubles.gaveUp = restored(row.integer(2));
  });
  return troubles;
}

}  // namespace quillet
