// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/deals.h"

#include <sqlite3.h>

#include <QString>
#include <string_view>

#include "analysis/recorded_price.h"
#include "base/text.h"
#include "library/chart_orders.h"
#include "library/row_sets.h"
#include "store/records/itunes_app.h"

namespace quillet {
namespace {

// What a query asks is bound under these numbers, whichever of them its conditions name.
enum Parameter : int {
  kCountry = 1,
  kMinimumDrop,
  kIsMac,
  kMacKind,
  kTolerance,
  kCharted,
  kText,
  kCount,
  kFirst
};

/// The stored percents are rounded: where they leave a doubt, and there alone, the prices decide.
constexpr std::string_view kDropped =
    " AND ZPERCENTOFF >= ?2 - 0.05 AND (ZPERCENTOFF > ?2 + 0.05 OR "
    "(ZWASPRICE - ZNOWPRICE) * 100 >= (?2 - 1e-9) * ZWASPRICE)";

struct Condition {
  bool (*isAsked)(const DealQuery&);
  std::string_view sql;
};

constexpr Condition kConditions[] = {
    // Whatever is a deal has dropped.
    {[](const DealQuery& query) { return query.minimumDrop > 0; }, kDropped},
    {[](const DealQuery& query) { return query.platform.has_value(); }, " AND (ZKIND IS ?4) = ?3"},
    {[](const DealQuery& query) { return query.pick.isFree; }, " AND ZNOWPRICE = 0"},
    {[](const DealQuery& query) { return query.pick.isAtLowest; },
     " AND ZNOWPRICE <= ZLOWESTPRICE + ?5"},
    {[](const DealQuery& query) { return query.pick.isWatched; },
     " AND EXISTS (SELECT 1 FROM ZWATCHEDAPP AS W WHERE W.ZTRACKID = ZDEAL.ZTRACKID AND "
     "W.ZCOUNTRY = ?1)"},
    {[](const DealQuery& query) { return query.pick.isInChart; },
     " AND ZTRACKID IN (SELECT value FROM json_each(?6))"},
    {[](const DealQuery& query) { return !query.pick.text.empty(); },
     " AND (quillet_holds(ZNAME, ?7) OR quillet_holds(ZSELLER, ?7))"},
};

std::string conditionsOf(const DealQuery& query) {
  std::string sql = "WHERE ZCOUNTRY = ?1";
  for (const Condition& each : kConditions) {
    if (each.isAsked(query)) sql.append(each.sql);
  }
  return sql;
}

QString foldedLine(const QString& text) { return text.simplified().toCaseFolded(); }

std::string chartedNumbers(SQLite::Database& database, const DealQuery& query) {
  if (!query.pick.isInChart) return {};
  std::vector<std::string> numbers;
  for (const std::int64_t app : chartedApps(database, query.country))
    numbers.push_back(std::to_string(app));
  return '[' + join(numbers, ",") + ']';
}

/// Nothing in it but letters that need no tables to be compared.
bool isSimple(std::string_view text) {
  char before = ' ';
  for (const char each : text) {
    const bool isDouble = each == ' ' && before == ' ';
    if (each < ' ' || each > '~' || isDouble) return false;
    before = each;
  }
  return before != ' ' || text.empty();
}

/// Whether a text holds another one, which is folded, once it is folded itself.
bool holds(std::string_view text, std::string_view part) {
  if (isSimple(text)) return lowerAscii(text).find(part) != std::string::npos;
  const auto decoded = [](std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
  };
  return foldedLine(decoded(text)).contains(decoded(part));
}

std::string_view bytesOf(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void holdsSql(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  sqlite3_result_int(context, holds(bytesOf(values[0]), bytesOf(values[1])) ? 1 : 0);
}

/// For queries that look for a text; the connection keeps it.
void addHolds(SQLite::Database& database, const DealQuery& query) {
  if (query.pick.text.empty()) return;
  database.createFunction("quillet_holds", 2, true, nullptr, holdsSql, nullptr, nullptr, nullptr);
}

/// The statement of a query, and the texts that are bound to it: it keeps no copies.
class DealStatement {
 public:
  DealStatement(SQLite::Database& database, const std::string& sql, const DealQuery& query)
      : query_(query),
        charted_(chartedNumbers(database, query)),
        text_(foldedLine(QString::fromStdString(query.pick.text)).toStdString()) {
    addHolds(database, query);
    statement_.emplace(database, sql);
    bindAll();
  }

  SQLite::Statement& operator*() { return *statement_; }

 private:
  void bindAll() {
    bind(kCountry, query_.country);
    bind(kMinimumDrop, query_.minimumDrop);
    bind(kIsMac, query_.platform == Platform::mac);
    bind(kMacKind, macKind_);
    bind(kTolerance, kPriceTolerance);
    bind(kCharted, charted_);
    bind(kText, text_);
    bind(kCount, static_cast<std::int64_t>(query_.count));
    bind(kFirst, static_cast<std::int64_t>(query_.first));
  }

  /// What the conditions name, and no more: others would be refused.
  template <typename Value>
  void bind(Parameter parameter, const Value& value) {
    if (parameter <= statement_->getBindParameterCount()) bindValue(*statement_, parameter, value);
  }

  const DealQuery& query_;
  std::string macKind_{kMacSoftwareKind};
  std::string charted_;
  std::string text_;
  std::optional<SQLite::Statement> statement_;
};

bool isOwnAndNewer(const Deal& stored, const Deal& deal) {
  return stored.edition.empty() && stored.changedOn > deal.changedOn;
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
  std::string sql = selectSql(shapeOf<Deal>()).append(conditionsOf(query));
  sql.append(" ORDER BY ")
      .append(orderSql(query.order))
      .append(
          "ZPERCENTOFF DESC, ZCHANGEDON DESC, ZNAME COLLATE NOCASE, ZTRACKID LIMIT ?8 OFFSET ?9");
  DealStatement statement(database, sql, query);
  std::vector<Deal> deals;
  while ((*statement).executeStep()) deals.push_back(readRow<Deal>(*statement));
  return deals;
}

std::int64_t dealCount(SQLite::Database& database, const DealQuery& query) {
  DealStatement statement(database, "SELECT count(*) FROM ZDEAL " + conditionsOf(query), query);
  (*statement).executeStep();
  return (*statement).getColumn(0).getInt64();
}

std::vector<Deal> dealsOfApps(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<Deal>(database, apps);
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
