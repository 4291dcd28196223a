// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/column_values.h"

#include <string_view>

#include "library/schema/keyed_archive.h"
#include "library/schema/reference_date.h"

namespace quillet {
namespace {

template <typename Value>
void bindArchive(SQLite::Statement& statement, int index, const std::vector<Value>& values) {
  const std::string bytes = archive(values);
  statement.bind(index, bytes.data(), static_cast<int>(bytes.size()));
}

template <typename Value>
void readArchive(const SQLite::Column& column, std::vector<Value>& values) {
  const std::string bytes = column.getString();
  values = unarchive<Value>(bytes).value_or(std::vector<Value>());
}

}  // namespace

void bindValue(SQLite::Statement& statement, int index, std::int64_t value) {
  statement.bind(index, value);
}
void bindValue(SQLite::Statement& statement, int index, double value) {
  statement.bind(index, value);
}
void bindValue(SQLite::Statement& statement, int index, bool value) {
  statement.bind(index, value ? 1 : 0);
}
void bindValue(SQLite::Statement& statement, int index, Instant value) {
  statement.bind(index, toReferenceSeconds(value));
}
void bindValue(SQLite::Statement& statement, int index, const std::string& value) {
  statement.bindNoCopy(index, value);
}
void bindValue(SQLite::Statement& statement, int index, const std::vector<std::int64_t>& value) {
  bindArchive(statement, index, value);
}
void bindValue(SQLite::Statement& statement, int index, const std::vector<std::string>& value) {
  bindArchive(statement, index, value);
}

void readValue(const SQLite::Column& column, std::int64_t& value) { value = column.getInt64(); }
void readValue(const SQLite::Column& column, double& value) { value = column.getDouble(); }
void readValue(const SQLite::Column& column, bool& value) { value = column.getInt64() != 0; }
void readValue(const SQLite::Column& column, Instant& value) {
  value = fromReferenceSeconds(column.getDouble());
}
void readValue(const SQLite::Column& column, std::string& value) { value = column.getString(); }
void readValue(const SQLite::Column& column, std::vector<std::int64_t>& value) {
  readArchive(column, value);
}
void readValue(const SQLite::Column& column, std::vector<std::string>& value) {
  readArchive(column, value);
}

}  // namespace quillet
