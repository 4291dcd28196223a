// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "analysis/billing_period.h"
#include "fuzzing.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  const auto period = parseBillingPeriod(input);
  require(periodDays(input).has_value() == period.has_value(), "what is read has a length");
  require(billingText(input).has_value() == (period && *period != BillingPeriod{}),
          "what lasts is told in words");
  if (!period) return;
  const auto& [years, months, weeks, days] = *period;
  require(parseBillingPeriod(fmt::format("P{}Y{}M{}W{}D", years, months, weeks, days)) == period,
          "a period reads back as it was written");
}
