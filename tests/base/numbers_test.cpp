// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillet {
namespace {

TEST(Numbers, WhatReadsAsADecimalAndAsAWholeNumber) {
  using Decimal = std::optional<double>;
  using Whole = std::optional<std::int64_t>;
  struct Case {
    std::string text;
    Decimal decimal;
    Whole whole;
  };
  const Case cases[] = {
      {"0", 0, 0},
      {"+42", 42, 42},
      {"007", 7, 7},
      {"4.99", 4.99, {}},
      {"+.5", 0.5, {}},
      {"1.", 1, {}},
      {"9223372036854775807", 9223372036854775807.0, 9223372036854775807},
      {"-9223372036854775808", -9223372036854775808.0, std::numeric_limits<std::int64_t>::min()},
      {"9223372036854775808", 9223372036854775808.0, {}},
      {std::string(400, '9'), {}, {}},
      {"", {}, {}},
      {"+", {}, {}},
      {".", {}, {}},
      {"+-5", {}, {}},
      {"1.2.3", {}, {}},
      {"1e3", {}, {}},
      {"0x1", {}, {}},
      {"inf", {}, {}},
      {" 1", {}, {}},
      {"5-", {}, {}},
      {"٣", {}, {}},
      {std::string("1\0", 2), {}, {}},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(parseDecimal(row.text), row.decimal) << row.text;
    EXPECT_EQ(parseWhole(row.text), row.whole) << row.text;
  }
}

TEST(Numbers, DecimalTextReadsBackAndIsNeverWhole) {
  const std::pair<double, const char*> cases[] = {
      {0, "0.0"},          {-0.0, "0.0"}, {5, "5.0"}, {4.99, "4.99"}, {1e15, "1000000000000000.0"},
      {1e-7, "0.0000001"},
  };
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(decimalText(number), text);
  }
  for (const double number : {std::numeric_limits<double>::max(), 5e-324, 0.1 + 0.2}) {
    EXPECT_EQ(parseDecimal(decimalText(number)), number);
  }
}

}  // namespace
}  // namespace quillet
