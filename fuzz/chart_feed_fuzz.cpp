// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/errors.h"
#include "fuzzing.h"
#include "store/records/chart_answers.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    for (const std::int64_t id : decodeChartFeed(std::string(textOf(data, size)))) {
      require(id > 0, "an ID is positive");
    }
  } catch (const DecodingError& error) {
    require(isValidUtf8(error.what()), "a refusal is valid UTF-8");
  }
  return 0;
}
