// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/deals.h"

#include <string_view>

#include "library/row_sets.h"
#include "store/records/itunes_app.h"

namespace quillet {
namespace {

/// The storefront, the minimum, whether only Mac apps (or only others), the kind of Mac apps. The
/// stored percents are rounded: by their index they leave out most, and the prices decide.
constexpr std::string_view kMatching =
    "WHERE ZCOUNTRY = ?1 AND ZPERCENTOFF >= ?2 - 0.05 AND "
    "(ZWASPRICE - ZNOWPRICE) * 100 >= (?2 - 1e-9) * ZWASPRICE AND "
    "(?3 IS NULL OR (ZKIND IS ?4) = ?3)";

bool isOwnAndNewer(const Deal& stored, const Deal& deal) {
  return stored.edition.empty() && stored.changedOn > deal.changedOn;
}

std::optional<bool> onlyMac(const DealQuery& query) {
  return query.platform ? std::optional(*query.platform == Platform::mac) : std::nullopt;
}

/// What goes before the order that all deals have.
std::string_view orderSql(DealOrder order) {
  switch (order) {
    case DealOrder::biggestDrop: return "";
    case DealOrder::newest: return "ZCHANGEDON DESC, ";
    case DealOrder::price: return "ZNOWPRICE, ";
    case DealOrder::name: return "ZNAME COLLATE NOCASE, ";
  }
  return "";
}

}  // namespace

std::vector<Deal> dealsOf(SQLite::Database& database, const DealQuery& query) {
  std::string rest(kMatching);
  rest.append(" ORDER BY ")
      .append(orderSql(query.order))
      .append(
          "ZPERCENTOFF DESC, ZCHANGEDON DESC, ZNAME COLLATE NOCASE, ZTRACKID LIMIT ?5 OFFSET ?6");
  return selectRows<Deal>(database, rest, query.country, query.minimumDrop, onlyMac(query),
                          std::string(kMacSoftwareKind), static_cast<std::int64_t>(query.count),
                          static_cast<std::int64_t>(query.first));
}

std::int64_t dealCount(SQLite::Database& database, const DealQuery& query) {
  SQLite::Statement statement(database,
                              std::string("SELECT count(*) FROM ZDEAL ").append(kMatching));
  const std::string mac(kMacSoftwareKind);
  bindAll(statement, query.country, query.minimumDrop, onlyMac(query), mac);
  statement.executeStep();
  return statement.getColumn(0).getInt64();
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
      "DELETE FROM ZDEAL WHERE ZCOUNTRY = ?1 AND ZEDITION <> ?2 AND (ZEDITION <> '' OR NOT EXISTS "
      "(SELECT 1 FROM ZWATCHEDAPP AS W WHERE W.ZTRACKID = ZDEAL.ZTRACKID AND W.ZCOUNTRY = ?1))");
  if (runOnce(statement, country, edition) > 0) transaction.changes.deals.insert(country);
}

}  // namespace quillet
