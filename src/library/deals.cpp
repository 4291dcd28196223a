// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/deals.h"

#include "library/row_sets.h"
#include "store/records/itunes_app.h"

namespace quillet {
namespace {

constexpr double kPercentTolerance = 1e-9;

bool isOwnAndNewer(const Deal& stored, const Deal& deal) {
  return stored.edition.empty() && stored.changedOn > deal.changedOn;
}

std::string_view kindCondition(const std::optional<Platform>& platform) {
  if (!platform) return "";
  return *platform == Platform::mac ? " AND ZKIND = ?5" : " AND ZKIND IS NOT ?5";
}

}  // namespace

std::vector<Deal> dealsOf(SQLite::Database& database, const DealQuery& query) {
  std::string rest = "WHERE ZCOUNTRY = ?1 AND ZPERCENTOFF >= ?2";
  rest.append(kindCondition(query.platform))
      .append(
          " ORDER BY ZPERCENTOFF DESC, ZCHANGEDON DESC, ZNAME COLLATE NOCASE, ZTRACKID"
          " LIMIT ?3 OFFSET ?4");
  const double minimum = query.minimumDrop - kPercentTolerance;
  const auto count = static_cast<std::int64_t>(query.count);
  const auto first = static_cast<std::int64_t>(query.first);
  if (!query.platform) {
    return selectRows<Deal>(database, rest, query.country, minimum, count, first);
  }
  return selectRows<Deal>(database, rest, query.country, minimum, count, first,
                          std::string(kMacSoftwareKind));
}

void keepDeals(WriteTransaction& transaction, const std::vector<Deal>& deals) {
  RowInserter<Deal> inserter(transaction.database, OnConflict::skip);
  RowUpdater<Deal> updater(transaction.database);
  RowQuery<Deal> query(transaction.database, kOfApp);
  for (const Deal& deal : deals) {
    transaction.changes.deals.insert(deal.country);
    if (inserter.insert(deal)) continue;
    const auto stored = query.first(deal.trackId, deal.country);
    if (!stored || isOwnAndNewer(*stored, deal)) continue;
    Deal row = deal;
    row.id = stored->id;
    updater.update(row);
  }
}

void forgetDeals(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  const auto deals = rowsOfApps<Deal>(transaction.database, apps);
  deleteRows(transaction.database, deals);
  for (const Deal& deal : deals) transaction.changes.deals.insert(deal.country);
}

void forgetOtherEditions(WriteTransaction& transaction, const std::string& country,
                         const std::string& edition) {
  SQLite::Statement statement(
      transaction.database,
      "DELETE FROM ZDEAL WHERE ZCOUNTRY = ?1 AND ZEDITION <> '' AND ZEDITION <> ?2");
  if (runOnce(statement, country, edition) > 0) transaction.changes.deals.insert(country);
}

}  // namespace quillet
