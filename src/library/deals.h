// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/app_key.h"
#include "library/schema/deal.h"
#include "library/write_transaction.h"
#include "store/records/platform.h"

namespace quillet {

/// What stands first in a list of deals; where that is equal, the biggest drop, then the newest,
/// then the name.
enum class DealOrder { biggestDrop, newest, price, name };

/// What deals must fulfil besides; all of it.
struct DealPick {
  bool isFree = false;
  bool isAtLowest = false;  ///< costs what it ever cost least
  bool isWatched = false;
  bool isInChart = false;  ///< of those that this library knows, as they were last
  std::string text;        ///< in the name or the seller's, letter case aside; empty: any

  friend bool operator==(const DealPick&, const DealPick&) = default;
};

/// Which deals of a storefront, and which piece of their list.
struct DealQuery {
  std::string country;
  std::optional<Platform> platform;  ///< absent: any; iPhone and iPad are one
  double minimumDrop = 0;            ///< percent
  std::size_t first = 0;
  std::size_t count = 2000;
  DealOrder order = DealOrder::biggestDrop;
  DealPick pick;

  friend bool operator==(const DealQuery&, const DealQuery&) = default;
};

[[nodiscard]] std::vector<Deal> dealsOf(SQLite::Database& database, const DealQuery& query);

/// How many there are in all pieces.
[[nodiscard]] std::int64_t dealCount(SQLite::Database& database, const DealQuery& query);

/// Those of these apps that are deals, in the order of the apps.
[[nodiscard]] std::vector<Deal> dealsOfApps(SQLite::Database& database,
                                            const std::vector<AppKey>& apps);

/// Adds deals or replaces those of the same app and storefront, but for what this program observed
/// itself and later.
void keepDeals(WriteTransaction& transaction, const std::vector<Deal>& deals);

/// Forgets the deals of these apps, of whatever edition.
void forgetDeals(WriteTransaction& transaction, const std::vector<AppKey>& apps);

/// Forgets the storefront's deals that another edition of the price data told, and those observed
/// here of apps that are watched no longer, for nobody would notice their end.
void forgetOtherEditions(WriteTransaction& transaction, const std::string& country,
                         const std::string& edition);

}  // namespace quillet
