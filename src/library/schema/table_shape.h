// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

enum class Optionality { required, optional };

/// A column as SQL sees it.
struct ColumnShape {
  std::string name;
  std::string_view type;  ///< the storage class
  Optionality optionality = Optionality::required;
  int revision = 1;
  std::string ownerTable;  ///< empty unless the column holds a key of that table
};

/// A table as SQL sees it, its key column aside.
struct TableShape {
  std::string name;
  int revision = 1;
  KeyUse keys = KeyUse::reused;
  std::vector<ColumnShape> columns;
  std::vector<Index> indexes;
};

/// "Z" and the name in upper case: how entities and attributes are called in the database.
[[nodiscard]] std::string storedName(std::string_view name);

template <typename Value>
struct StorageOf {
  static constexpr std::string_view kType = std::is_integral_v<Value> ? "INTEGER" : "BLOB";
  static constexpr Optionality kOptionality = Optionality::required;
};
template <>
struct StorageOf<double> {
  static constexpr std::string_view kType = "REAL";
  static constexpr Optionality kOptionality = Optionality::required;
};
template <>
struct StorageOf<Instant> : StorageOf<double> {};
template <>
struct StorageOf<std::string> {
  static constexpr std::string_view kType = "TEXT";
  static constexpr Optionality kOptionality = Optionality::required;
};
template <typename Value>
struct StorageOf<std::optional<Value>> {
  static constexpr std::string_view kType = StorageOf<Value>::kType;
  static constexpr Optionality kOptionality = Optionality::optional;
};

template <typename Entity, typename Value>
ColumnShape shapeOfColumn(const Attribute<Entity, Value>& attribute) {
  return {storedName(attribute.name), StorageOf<Value>::kType, StorageOf<Value>::kOptionality,
          attribute.revision,
          attribute.owner.empty() ? std::string() : storedName(attribute.owner)};
}

/// Whether older libraries can be brought to hold it: to a table with rows, SQLite adds only
/// columns that may be NULL.
template <typename Entity, typename Value>
constexpr bool canBeAdded(const Attribute<Entity, Value>& attribute, int tableRevision) {
  return attribute.revision <= tableRevision ||
         StorageOf<Value>::kOptionality == Optionality::optional;
}

/// The shape that an entity's declaration amounts to.
template <typename Entity>
TableShape shapeOf() {
  constexpr const auto& table = kTable<Entity>;
  static_assert(
      std::apply([](const auto&... each) { return (canBeAdded(each, table.revision) && ...); },
                 table.attributes),
      "An attribute of a later revision than its table's must be optional.");
  TableShape shape{storedName(table.entity), table.revision, table.keys, {}, {}};
  std::apply([&](const auto&... each) { (shape.columns.push_back(shapeOfColumn(each)), ...); },
             table.attributes);
  for (const Index& index : table.indexes) {
    if (!index.attributes[0].empty()) shape.indexes.push_back(index);
  }
  return shape;
}

/// The shapes of all entities, owners first.
[[nodiscard]] std::vector<TableShape> allTables();

}  // namespace quillet
