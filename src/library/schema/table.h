// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>

namespace quillet {

/// The key of a row within its table; 0 while the row is not stored yet.
using RowId = std::int64_t;

/// Whether the key of a deleted row may be given to a new one. Rows that a person removes keep
/// theirs, so that taking the removal back never meets a stranger.
enum class KeyUse { reused, unique };

/// One attribute: its name, the field that holds it, and the revision that brought it. Optional
/// fields may be NULL. A to-one relationship names the entity whose key it holds.
template <typename Entity, typename Value>
struct Attribute {
  using Field = Value;

  std::string_view name;
  Value Entity::* field;
  int revision = 1;
  std::string_view owner{};
};

/// Attributes that rows are found by, the most telling one first; empty names are none.
struct Index {
  enum class Kind { plain, unique };

  Kind kind = Kind::plain;
  std::array<std::string_view, 4> attributes{};
};

/// What is declared of an entity, once; everything that reaches SQL derives from it.
template <typename... Attributes>
struct Table {
  std::string_view entity;
  int revision;
  KeyUse keys;
  std::array<Index, 3> indexes;
  std::tuple<Attributes...> attributes;
};

/// The table of an entity; specialised beside each. An entity is a plain struct with a RowId `id`.
template <typename Entity>
inline constexpr auto kTable = nullptr;

template <typename Entity, typename Value>
constexpr Attribute<Entity, Value> attribute(std::string_view name, Value Entity::* field,
                                             int revision = 1) {
  return {name, field, revision};
}

/// A to-one relationship; its row goes when the `owner`'s row goes.
template <typename Entity, typename Value>
constexpr Attribute<Entity, Value> toOne(std::string_view name, Value Entity::* field,
                                         std::string_view owner) {
  return {name, field, 1, owner};
}

}  // namespace quillet
