// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/record_copy.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/text.h"
#include "collector/record_tables.h"

namespace quillet {

namespace {

enum class ColumnType { whole, real, text };

struct Column {
  std::string name;
  ColumnType type;
};

ColumnType typeCalled(const std::string& word) {
  if (word == "bigint" || word == "smallint" || word == "integer") return ColumnType::whole;
  if (word == "double precision") return ColumnType::real;
  if (word == "text") return ColumnType::text;
  throw DatabaseError(
      fmt::format("The record has a column of a type that is not known: {}.", word));
}

std::vector<Column> columnsOf(SqlTransaction& transaction, const SqlDialect& dialect,
                              const RecordTable& table) {
  std::vector<Column> columns;
  transaction.each(
      std::string(dialect.columnsOf), {std::string(table.name)},
      [&](const SqlRow& row) { columns.push_back({row.text(0), typeCalled(row.text(1))}); });
  return columns;
}

SqlValue valueIn(const SqlRow& row, int place, ColumnType type) {
  switch (type) {
    case ColumnType::whole: return row.integer(place);
    case ColumnType::real: return row.real(place);
    case ColumnType::text: break;
  }
  return row.text(place);
}

std::int64_t countOf(SqlTransaction& transaction, std::string_view table) {
  std::int64_t rows = 0;
  transaction.each(fmt::format("SELECT COUNT(*) FROM {}", table), {},
                   [&](const SqlRow& row) { rows = row.integer(0); });
  return rows;
}

/// Returns how many rows there were.
std::int64_t copyTable(SqlTransaction& from, const SqlDialect& dialect, SqlTransaction& to,
                       const RecordTable& table) {
  const std::vector<Column> columns = columnsOf(from, dialect, table);
  if (columns.empty()) return 0;  // a record that is as old has no such table
  std::vector<std::string> names;
  for (const Column& column : columns) names.push_back(column.name);
  const auto rowsIn = to.insertion(std::string(table.name), names);
  SqlValues values(columns.size());
  std::int64_t rows = 0;
  // In the order of the key, for a file grows at its end fastest.
  from.each(
      fmt::format("SELECT {} FROM {} ORDER BY {}", fmt::join(names, ","), table.name, table.key),
      {}, [&](const SqlRow& row) {
        for (std::size_t i = 0; i < columns.size(); ++i)
          values[i] = valueIn(row, static_cast<int>(i), columns[i].type);
        rowsIn->add(values);
        ++rows;
      });
  rowsIn->end();
  return rows;
}

void requireEmpty(SqlTransaction& transaction) {
  for (const RecordTable& table : recordTables()) {
    if (countOf(transaction, table.name) == 0) continue;
    throw RecordInTheWay(
        fmt::format("There is a record already ({}). Name another database, or put this one aside.",
                    wordsOf(sizeOf(transaction))));
  }
}

}  // namespace

RecordSize sizeOf(SqlTransaction& transaction) {
  return {countOf(transaction, "apps"), countOf(transaction, "prices"),
          countOf(transaction, "rounds")};
}

std::string wordsOf(const RecordSize& size) {
  return fmt::format("apps: {}, prices: {}, rounds: {}", size.apps, size.prices, size.rounds);
}

RecordSize copyRecord(SqlTransaction& from, const SqlDialect& dialect, SqlTransaction& to) {
  for (const RecordTable& table : recordTables()) {
    const std::int64_t rows = copyTable(from, dialect, to, table);
    if (countOf(to, table.name) != rows)
      throw DatabaseError(fmt::format("Not all rows of '{}' could be copied.", table.name));
  }
  return sizeOf(to);
}

void fillRecord(SqlDatabase& database, const std::function<void(SqlTransaction&)>& fill) {
  inTransaction(database, SqlAccess::alone, [&](SqlTransaction& transaction) {
    (void)makeRecordTables(transaction, database.dialect());
    requireEmpty(transaction);
    fill(transaction);
  });
}

void requireSound(SqlTransaction& transaction) {
  std::string verdict;
  transaction.each("PRAGMA integrity_check(1)", {},
                   [&](const SqlRow& row) { verdict = row.text(0); });
  if (verdict != "ok")
    throw DatabaseError(fmt::format("The file is damaged: {}.", printable(verdict)));
}

}  // namespace quillet
