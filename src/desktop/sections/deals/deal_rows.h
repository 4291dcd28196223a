// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desktop/models/row_parts.h"
#include "desktop/models/row_table.h"
#include "desktop/services/price_imports.h"
#include "library/deals.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// The rows come in their order already, and picked: the library does both.
[[nodiscard]] RowTable dealsTable();

/// What of the chips, the text and the order the library is asked. `storefront`: the user's.
[[nodiscard]] DealQuery dealQueryOf(const DealPlace& place, const RowView& view,
                                    const std::string& storefront);

/// What the library knows of a deal's app besides.
struct DealAside {
  bool isWatched = false;
  std::string artwork;
  QString category;

  friend bool operator==(const DealAside&, const DealAside&) = default;
};

/// Of these apps; those of which nothing is known are absent.
[[nodiscard]] std::map<AppKey, DealAside> readDealAsides(SQLite::Database& database,
                                                         const std::vector<AppKey>& apps);

[[nodiscard]] AppRow dealRow(const Deal& deal, const RowContext& context,
                             const LocaleFormats& formats);
/// Takes it into the row, in the place of what was known.
void takeAside(AppRow& row, const DealAside& aside);

/// A piece of the rows, and of how many they are one.
struct DealReading {
  std::vector<AppRow> rows;
  std::int64_t shown = 0;  ///< deals that the query leaves
  std::int64_t all = 0;    ///< of the storefront
  std::optional<Instant>
      recorded;              ///< when the newest edition's prices were; absent where it says no
  bool wasImported = false;  ///< some edition
};

[[nodiscard]] DealReading readDeals(SQLite::Database& database, const DealQuery& query,
                                    const RowContext& context);

/// "Prices recorded 20 Nov 2026 · next look today 23:00", as far as it is known; where nobody
/// looked for days, since when.
[[nodiscard]] QString recordedText(const std::optional<Instant>& recorded,
                                   const PriceDataState& state, Instant now,
                                   const UtcOffsetAt& zone);

}  // namespace quillet
