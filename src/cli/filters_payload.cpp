// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/filters_payload.h"

#include <algorithm>

#include "analysis/filter_words.h"

namespace quillet {

void writeFilters(JsonWriter& writer, const AppFilters& filters) {
  auto words = activeFilterWords(filters);
  std::sort(words.begin(), words.end());
  writer.beginObject();
  for (const auto& [name, value] : words) writer.member(name, value);
  writer.endObject();
}

}  // namespace quillet
