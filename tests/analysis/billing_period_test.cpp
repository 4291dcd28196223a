// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/billing_period.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(BillingPeriod, lengthAndWords) {
  const std::tuple<const char*, double, const char*> rows[] = {
      {"P7D", 7, "per week"},
      {"p2w", 14, "every 2 weeks"},
      {"P12M", 365.28, "per year"},
      {"P1Y6M", 547.89, "every 18 months"},
      {"P1M15D", 45.44, "every 1 month and 15 days"},
      {"P1MT12H", 30.44, "per month"},
      {"P4294967295Y", 4294967295 * 365.25, "every 4294967295 years"},
      {"P0D", 0, "nothing"},
  };
  for (const auto& [text, days, words] : rows) {
    EXPECT_DOUBLE_EQ(periodDays(text).value_or(-1), days) << text;
    EXPECT_EQ(billingText(text).value_or("nothing"), words) << text;
  }
}

TEST(BillingPeriod, unreadable) {
  for (const char* text : {"", "P", "PT1H", "1M", "P1", "PM", "P1M2", "P1M1M", "P-1M", "P1.5M",
                           "P 1M", "P1M ", "P1H", "P0x1M", "P4294967296D", "P\xD9\xA1M"}) {
    EXPECT_EQ(periodDays(text), std::nullopt) << text;
    EXPECT_EQ(billingText(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace quillet
