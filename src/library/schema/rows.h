// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "library/schema/column_values.h"
#include "library/schema/table_shape.h"
#include "library/schema/table_sql.h"

namespace quillet {

/// Binds the fields of `row` in the order of its table: the key first, as NULL where it has none.
template <typename Entity>
void bindRow(SQLite::Statement& statement, const Entity& row) {
  int index = 1;
  bindValue(statement, index, row.id == 0 ? std::optional<RowId>() : row.id);
  std::apply([&](const auto&... each) { (bindValue(statement, ++index, row.*(each.field)), ...); },
             kTable<Entity>.attributes);
}

/// The row at hand of a statement that began with selectSql.
template <typename Entity>
Entity readRow(SQLite::Statement& statement) {
  Entity row;
  int index = 0;
  readValue(statement.getColumn(index), row.id);
  std::apply(
      [&](const auto&... each) {
        (readValue(statement.getColumn(++index), row.*(each.field)), ...);
      },
      kTable<Entity>.attributes);
  return row;
}

template <typename... Parameters>
void bindAll(SQLite::Statement& statement, const Parameters&... parameters) {
  int index = 0;
  (bindValue(statement, ++index, parameters), ...);
}

/// Runs `statement` once with these parameters and readies it for the next run. Returns the number
/// of rows changed.
template <typename... Parameters>
int runOnce(SQLite::Statement& statement, const Parameters&... parameters) {
  bindAll(statement, parameters...);
  const int changed = statement.exec();
  statement.reset();
  return changed;
}

/// Whether `statement`, a query, finds anything for these parameters; readies it for the next run.
template <typename... Parameters>
bool hasRow(SQLite::Statement& statement, const Parameters&... parameters) {
  bindAll(statement, parameters...);
  const bool found = statement.executeStep();
  statement.reset();
  return found;
}

/// A prepared insert, for one row or a million.
template <typename Entity>
class RowInserter {
 public:
  RowInserter(SQLite::Database& database, OnConflict onConflict)
      : database_(database), statement_(database, insertSql(shapeOf<Entity>(), onConflict)) {}

  /// The row's key; absent when it was skipped, since a row of the same identity is there.
  std::optional<RowId> insert(const Entity& row) {
    bindRow(statement_, row);
    const int inserted = statement_.exec();
    statement_.reset();
    if (inserted == 0) return std::nullopt;
    return database_.getLastInsertRowid();
  }

 private:
  SQLite::Database& database_;
  SQLite::Statement statement_;
};

template <typename Entity>
RowId insertRow(SQLite::Database& database, const Entity& row) {
  return *RowInserter<Entity>(database, OnConflict::fail).insert(row);
}

/// A prepared update, for one row or many.
template <typename Entity>
class RowUpdater {
 public:
  explicit RowUpdater(SQLite::Database& database)
      : statement_(database, updateSql(shapeOf<Entity>())) {}

  /// Writes all fields of a stored row.
  void update(const Entity& row) {
    bindRow(statement_, row);
    statement_.exec();
    statement_.reset();
  }

 private:
  SQLite::Statement statement_;
};

template <typename Entity>
void updateRow(SQLite::Database& database, const Entity& row) {
  RowUpdater<Entity>(database).update(row);
}

/// A prepared query for rows; `rest` is what follows the table's name.
template <typename Entity>
class RowQuery {
 public:
  RowQuery(SQLite::Database& database, std::string_view rest)
      : statement_(database, selectSql(shapeOf<Entity>()).append(rest)) {}

  template <typename... Parameters>
  std::vector<Entity> all(const Parameters&... parameters) {
    bindAll(statement_, parameters...);
    std::vector<Entity> rows;
    while (statement_.executeStep()) rows.push_back(readRow<Entity>(statement_));
    statement_.reset();
    return rows;
  }

  template <typename... Parameters>
  std::optional<Entity> first(const Parameters&... parameters) {
    bindAll(statement_, parameters...);
    std::optional<Entity> row;
    if (statement_.executeStep()) row = readRow<Entity>(statement_);
    statement_.reset();
    return row;
  }

 private:
  SQLite::Statement statement_;
};

template <typename Entity, typename... Parameters>
std::vector<Entity> selectRows(SQLite::Database& database, std::string_view rest,
                               const Parameters&... parameters) {
  return RowQuery<Entity>(database, rest).all(parameters...);
}

template <typename Entity, typename... Parameters>
std::optional<Entity> selectRow(SQLite::Database& database, std::string_view rest,
                                const Parameters&... parameters) {
  return RowQuery<Entity>(database, rest).first(parameters...);
}

}  // namespace quillet
