// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"
#include "fuzzing.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto filters = decodeFilters(textOf(data, size));
  if (!filters) return 0;
  const auto again = decodeFilters(encodeFilters(*filters));
  require(again == filters, "filters read back as they were written");
  return 0;
}
