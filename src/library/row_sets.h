// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "library/app_key.h"
#include "library/schema/rows.h"

namespace quillet {

// Sets of rows by key, for the operations in this folder.

inline constexpr std::string_view kOfApp = "WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2";
inline constexpr std::string_view kOfKey = "WHERE Z_PK = ?1";

/// The rows of these apps that are stored, in the order of the apps.
template <typename Entity>
std::vector<Entity> rowsOfApps(SQLite::Database& database, const std::vector<AppKey>& apps,
                               std::string_view order = "") {
  RowQuery<Entity> query(database, std::string(kOfApp).append(order));
  std::vector<Entity> rows;
  for (const AppKey& app : apps) {
    for (Entity& row : query.all(app.trackId, app.country)) rows.push_back(std::move(row));
  }
  return rows;
}

template <typename Entity>
std::vector<Entity> rowsOfKeys(SQLite::Database& database, const std::vector<RowId>& keys) {
  RowQuery<Entity> query(database, kOfKey);
  std::vector<Entity> rows;
  for (const RowId key : keys) {
    if (auto row = query.first(key)) rows.push_back(*std::move(row));
  }
  return rows;
}

template <typename Entity>
void deleteRows(SQLite::Database& database, const std::vector<Entity>& rows) {
  SQLite::Statement statement(database,
                              "DELETE FROM " + shapeOf<Entity>().name + " WHERE Z_PK = ?1");
  for (const Entity& row : rows) runOnce(statement, row.id);
}

/// Calls `edit(row, item)` for each item whose app (`item.app`) has a row, and stores the row.
template <typename Entity, typename Item, typename Edit>
void editRowsOfApps(SQLite::Database& database, const std::vector<Item>& items, Edit edit) {
  RowQuery<Entity> query(database, kOfApp);
  RowUpdater<Entity> updater(database);
  for (const Item& item : items) {
    auto row = query.first(item.app.trackId, item.app.country);
    if (!row) continue;
    edit(*row, item);
    updater.update(*row);
  }
}

}  // namespace quillet
