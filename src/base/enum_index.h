// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <type_traits>

namespace quillet {

/// The place of a case in a table with one row for each, in their order.
template <typename Enum>
  requires std::is_enum_v<Enum>
constexpr std::size_t indexOf(Enum value) {
  return static_cast<std::size_t>(value);
}

}  // namespace quillet
