// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillet {
namespace {

using namespace std::string_view_literals;

TEST(Numbers, WhatReadsAsADecimalAndAsAWholeNumber) {
  using Decimal = std::optional<double>;
  using Whole = std::optional<std::int64_t>;
  const std::tuple<std::string, Decimal, Whole> cases[] = {
      {"+42", 42, 42},
      {"4.99", 4.99, {}},
      {"+.5", 0.5, {}},
      {"1.", 1, {}},
      {"-9223372036854775808", -9223372036854775808.0, std::numeric_limits<std::int64_t>::min()},
      {"9223372036854775808", 9223372036854775808.0, {}},
  };
  for (const auto& [text, decimal, whole] : cases) {
    EXPECT_EQ(parseDecimal(text), decimal) << text;
    EXPECT_EQ(parseWhole(text), whole) << text;
  }
  const std::string tooLong(400, '9');
  for (const std::string_view text : {""sv, "+"sv, "+-5"sv, "1.2.3"sv, "1e3"sv, "0x1"sv, "inf"sv,
                                      " 1"sv, "5-"sv, "٣"sv, "1\0"sv, std::string_view(tooLong)}) {
    EXPECT_FALSE(parseDecimal(text) || parseWhole(text)) << text;
  }
}

TEST(Numbers, DecimalTextReadsBackAndIsNeverWhole) {
  const std::pair<double, const char*> cases[] = {
      {-0.0, "0.0"}, {5, "5.0"}, {4.99, "4.99"}, {1e15, "1000000000000000.0"}, {1e-7, "0.0000001"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(decimalText(number), text);
  for (const double number : {std::numeric_limits<double>::max(), 5e-324, 0.1 + 0.2})
    EXPECT_EQ(parseDecimal(decimalText(number)), number);
}

}  // namespace
}  // namespace quillet
