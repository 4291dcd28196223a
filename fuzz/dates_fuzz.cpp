// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/dates.h"
#include "fuzzing.h"

using namespace quillet;

namespace {

/// What is written of any instant reads back to what is written again.
void checkRoundTrip(Instant instant) {
  const std::string text = formatInternetDate(instant);
  const auto read = parseInternetDate(text);
  require(read.has_value(), "a written date can be read");
  require(formatInternetDate(*read) == text, "a date reads back as written");
  require(text.starts_with(formatDay(instant)), "the day is the date's");
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  if (const auto instant = parseInternetDate(input)) checkRoundTrip(*instant);
  checkRoundTrip(Instant{std::chrono::milliseconds{takeNumber<std::int64_t>(input)}});
}
