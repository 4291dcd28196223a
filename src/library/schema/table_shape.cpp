// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/table_shape.h"

#include "library/schema/entities.h"

namespace quillet {
namespace {

char upperAscii(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

template <typename... Each>
std::vector<TableShape> shapesOf(const std::tuple<Each...>* /*entities*/) {
  return {shapeOf<Each>()...};
}

}  // namespace

std::string storedName(std::string_view name) {
  std::string stored = "Z";
  for (const char letter : name) stored += upperAscii(letter);
  return stored;
}

std::vector<TableShape> allTables() { return shapesOf(static_cast<const Entities*>(nullptr)); }

}  // namespace quillet
