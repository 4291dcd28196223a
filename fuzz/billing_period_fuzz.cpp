// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "analysis/billing_period.h"
#include "fuzzing.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = textOf(data, size);
  const auto period = parseBillingPeriod(text);
  require(periodDays(text).has_value() == period.has_value(), "what is read has a length");
  require(billingText(text).has_value() == (period && *period != BillingPeriod{}),
          "what lasts is told in words");
  if (!period) return 0;
  const auto& [years, months, weeks, days] = *period;
  require(parseBillingPeriod(fmt::format("P{}Y{}M{}W{}D", years, months, weeks, days)) == period,
          "a period reads back as it was written");
  return 0;
}
