// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <optional>
#include <string>

#include "collector/sql_database.h"

namespace quillet {

// What keeps collectors from the store's answers, as the record holds it: the last of it alone.

struct Trouble {
  Instant at;
  std::string words;
};

struct Troubles {
  std::optional<Trouble> last;
  std::optional<Instant> gaveUp;  ///< when a collector last ended because of any
};

/// Records a trouble after which the collector pauses and goes on. Throws DatabaseError.
void noteTrouble(SqlDatabase& database, const Trouble& trouble);

/// Records what ended a collector, if the store or the way there was it. Throws nothing: where it
/// cannot be recorded, it is told by the collector's end alone.
void noteGivingUp(SqlDatabase& database, const std::exception_ptr& error, Instant now);

[[nodiscard]] Troubles troublesIn(SqlTransaction& transaction);

}  // namespace quillet
