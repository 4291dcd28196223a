// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"
#include "fuzzing.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  const auto filters = decodeFilters(input);
  if (!filters) return;
  const auto again = decodeFilters(encodeFilters(*filters));
  require(again == filters, "filters read back as they were written");
}
