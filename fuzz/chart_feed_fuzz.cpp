// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/chart_answers.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([input] {
    for (const std::int64_t id : decodeChartFeed(std::string(input))) {
      require(id > 0, "an ID is positive");
    }
  });
}
