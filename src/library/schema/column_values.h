// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"

namespace quillet {

// How each kind of field travels between a row and its struct. Text is not copied when bound: it
// must live until the statement has run.

void bindValue(SQLite::Statement& statement, int index, std::int64_t value);
void bindValue(SQLite::Statement& statement, int index, double value);
void bindValue(SQLite::Statement& statement, int index, bool value);
void bindValue(SQLite::Statement& statement, int index, Instant value);
void bindValue(SQLite::Statement& statement, int index, const std::string& value);
void bindValue(SQLite::Statement& statement, int index, const std::vector<std::int64_t>& value);
void bindValue(SQLite::Statement& statement, int index, const std::vector<std::string>& value);

/// Would be taken for a flag.
void bindValue(SQLite::Statement& statement, int index, const char* value) = delete;

template <typename Value>
void bindValue(SQLite::Statement& statement, int index, const std::optional<Value>& value) {
  if (value) {
    bindValue(statement, index, *value);
  } else {
    statement.bind(index);
  }
}

// A row that breaks a rule reads all the same: what is of another type or missing converts to the
// nearest value, and an archive that cannot be read to an empty array.

void readValue(const SQLite::Column& column, std::int64_t& value);
void readValue(const SQLite::Column& column, double& value);
void readValue(const SQLite::Column& column, bool& value);
void readValue(const SQLite::Column& column, Instant& value);
void readValue(const SQLite::Column& column, std::string& value);
void readValue(const SQLite::Column& column, std::vector<std::int64_t>& value);
void readValue(const SQLite::Column& column, std::vector<std::string>& value);

template <typename Value>
void readValue(const SQLite::Column& column, std::optional<Value>& value) {
  if (!column.isNull()) readValue(column, value.emplace());
}

}  // namespace quillet
