// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillet {

/// One row of an enumeration's table: a case and the text that stands for it.
template <typename Enum>
struct EnumText {
  Enum value;
  std::string_view text;
};

template <typename Enum, std::size_t N>
using EnumTable = std::array<EnumText<Enum>, N>;

/// Whether row i holds case i, up to `last`: what a table's static_assert checks.
template <typename Enum, std::size_t N>
constexpr bool isComplete(const EnumTable<Enum, N>& table, Enum last) {
  for (std::size_t i = 0; i < N; ++i) {
    if (static_cast<std::size_t>(table[i].value) != i) return false;
  }
  return N == static_cast<std::size_t>(last) + 1;
}

template <typename Enum, std::size_t N>
constexpr std::string_view textOf(const EnumTable<Enum, N>& table, Enum value) {
  return table[static_cast<std::size_t>(value)].text;
}

/// The case whose text is exactly `text`; absent where no row has it.
template <typename Enum, std::size_t N>
constexpr std::optional<Enum> valueOf(const EnumTable<Enum, N>& table, std::string_view text) {
  for (const auto& row : table) {
    if (row.text == text) return row.value;
  }
  return std::nullopt;
}

}  // namespace quillet
