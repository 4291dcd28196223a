// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "library/schema/table_shape.h"

namespace quillet {

/// The statements that bring the given tables from the revision before to `revision`: new tables
/// with their indexes, and new columns of older tables.
[[nodiscard]] std::vector<std::string> revisionSql(const std::vector<TableShape>& tables,
                                                   int revision);

/// What becomes of a new row where one of the same key or the same identity is stored.
enum class OnConflict { fail, skip };

/// Inserts a whole row; parameter 1 is the key, where NULL asks for a new one, and the columns
/// follow in their order.
[[nodiscard]] std::string insertSql(const TableShape& table, OnConflict onConflict);

/// Replaces a whole row; parameters as of insertSql.
[[nodiscard]] std::string updateSql(const TableShape& table);

/// "SELECT key, columns… FROM table ", to be followed by conditions and order.
[[nodiscard]] std::string selectSql(const TableShape& table);

}  // namespace quillet
