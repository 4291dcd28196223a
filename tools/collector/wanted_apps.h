// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "collector/sql_database.h"

namespace quillet {

// The apps that a round looks up, in the record until it has its lookups: a round begins with those
// that are known and with questions that find more, and collectors share these as they share
// lookups. All functions on a transaction throw DatabaseError.

/// Which apps a round looks up, in which storefronts. Sources add up.
struct WantedApps {
  std::vector<std::string> storefronts;
  std::vector<std::int64_t> ids;
  std::vector<std::string> searches;
  bool wantsCharts = false;
  bool wantsRecorded = false;  ///< all that the record holds
};

/// A list of track IDs with one each line; what follows a "#" is a remark. Throws BadSetting,
/// naming `file` and the line, for anything else.
[[nodiscard]] std::vector<std::int64_t> parseIds(std::string_view text, const std::string& file);

/// Begins a round that is to be prepared. To be called with SqlAccess::alone when none is under
/// way.
void beginPreparation(SqlTransaction& transaction, const WantedApps& wanted, Instant now);

/// Adds to the apps of the round that is prepared.
void addWanted(SqlTransaction& transaction, std::vector<std::int64_t> ids);

/// Gives the round under way its lookups, each app once in each storefront, a hundred at a time, if
/// all its questions are done, and keeps those that failed; returns whether that was to be done
/// now. A round without any app is taken back, as if it had never begun. To be called with
/// SqlAccess::alone.
[[nodiscard]] bool endPreparation(SqlTransaction& transaction);

}  // namespace quillet
