// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/table_sql.h"

#include <fmt/format.h>

#include <string_view>

#include "base/text.h"

namespace quillet {
namespace {

std::string columnSql(const ColumnShape& column) {
  std::string sql = fmt::format("{} {}", column.name, column.type);
  if (column.optionality == Optionality::required) sql += " NOT NULL";
  if (!column.ownerTable.empty()) {
    sql += fmt::format(" REFERENCES {} ON DELETE CASCADE", column.ownerTable);
  }
  return sql;
}

std::string createTableSql(const TableShape& table) {
  std::vector<std::string> parts{table.keys == KeyUse::unique
                                     ? "Z_PK INTEGER PRIMARY KEY AUTOINCREMENT"
                                     : "Z_PK INTEGER PRIMARY KEY"};
  for (const ColumnShape& column : table.columns) {
    if (column.revision <= table.revision) parts.push_back(columnSql(column));
  }
  return fmt::format("CREATE TABLE {} (\n  {})", table.name, join(parts, ",\n  "));
}

std::string createIndexSql(const TableShape& table, const Index& index) {
  std::vector<std::string> columns;
  for (const std::string_view name : index.attributes) {
    if (!name.empty()) columns.push_back(storedName(name));
  }
  return fmt::format("CREATE {}INDEX INDEX_{}_{} ON {} ({})",
                     index.kind == Index::Kind::unique ? "UNIQUE " : "", table.name,
                     join(columns, "_"), table.name, join(columns, ", "));
}

/// Text in which each column stands in turn, after what stands for the key.
template <typename Write>
std::string eachColumn(const TableShape& table, std::string key, Write write) {
  std::vector<std::string> parts;
  if (!key.empty()) parts.push_back(std::move(key));
  int parameter = 1;
  for (const ColumnShape& column : table.columns) parts.push_back(write(column, ++parameter));
  return join(parts, ", ");
}

std::string columnNames(const TableShape& table) {
  return eachColumn(table, "Z_PK",
                    [](const ColumnShape& column, int /*parameter*/) { return column.name; });
}

}  // namespace

std::vector<std::string> revisionSql(const std::vector<TableShape>& tables, int revision) {
  std::vector<std::string> statements;
  for (const TableShape& table : tables) {
    if (table.revision == revision) {
      statements.push_back(createTableSql(table));
      for (const Index& index : table.indexes) statements.push_back(createIndexSql(table, index));
    }
    for (const ColumnShape& column : table.columns) {
      if (column.revision != revision || column.revision <= table.revision) continue;
      statements.push_back(
          fmt::format("ALTER TABLE {} ADD COLUMN {}", table.name, columnSql(column)));
    }
  }
  return statements;
}

std::string insertSql(const TableShape& table, OnConflict onConflict) {
  const auto parameter = [](const ColumnShape& /*column*/, int number) {
    return fmt::format("?{}", number);
  };
  // A conflict clause of the statement would skip rows with a missing value, too.
  return fmt::format("INSERT INTO {} ({}) VALUES ({}){}", table.name, columnNames(table),
                     eachColumn(table, "?1", parameter),
                     onConflict == OnConflict::skip ? " ON CONFLICT DO NOTHING" : "");
}

std::string updateSql(const TableShape& table) {
  const auto assignment = [](const ColumnShape& column, int number) {
    return fmt::format("{} = ?{}", column.name, number);
  };
  return fmt::format("UPDATE {} SET {} WHERE Z_PK = ?1", table.name,
                     eachColumn(table, "", assignment));
}

std::string selectSql(const TableShape& table) {
  return fmt::format("SELECT {} FROM {} ", columnNames(table), table.name);
}

}  // namespace quillet
