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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = textOf(data, size);
  if (const auto instant = parseInternetDate(text)) checkRoundTrip(*instant);
  checkRoundTrip(Instant{std::chrono::milliseconds{takeNumber<std::int64_t>(text)}});
  return 0;
}
