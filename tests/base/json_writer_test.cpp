// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_writer.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillet {
namespace {

template <typename T>
std::string written(const T& value) {
  JsonWriter writer;
  writer.value(value);
  return writer.take();
}

TEST(JsonWriter, NestsAndLeavesOutWhatIsAbsent) {
  JsonWriter writer(JsonLayout::compact);
  writer.beginObject();
  writer.member("\"\xFF\n", std::vector<std::string>());
  writer.member("absent", std::optional<int>());
  writer.memberUnlessEmpty("blank", "");
  writer.member("flag", std::optional<bool>(false));
  writer.key("items");
  writer.beginArray();
  writer.value(1);
  writer.value(std::vector<std::string>{"a", "b"});
  writer.endArray();
  writer.memberUnlessEmpty("site", "https://a/b");
  writer.endObject();
  EXPECT_EQ(
      writer.take(),
      "{\"\\\"\uFFFD\\n\":[],\"flag\":false,\"items\":[1,[\"a\",\"b\"]],\"site\":\"https://a/b\"}");
  EXPECT_EQ(written(std::vector<std::vector<int>>{{1, 2}, {}}),
            "[\n  [\n    1,\n    2\n  ],\n  []\n]");
}

TEST(JsonWriter, EscapesAndRepairsText) {
  using namespace std::string_view_literals;
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"a\"b\\c/d"sv, R"("a\"b\\c/d")"},
      {"\b\f\n\r\t"sv, R"("\b\f\n\r\t")"},
      {"\0\x1b\x1f\x7f"sv, "\"\\u0000\\u001b\\u001f\x7f\""},
      {"é 東 😀 \u2028"sv, "\"é 東 😀 \u2028\""},
      {"\xE6\x9D\"\n"sv, "\"\uFFFD\uFFFD\\\"\\n\""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(written(text), expected);
}

TEST(JsonWriter, WritesNumbersAsPeopleDoAndNoneBeyondIntegers) {
  const std::pair<double, const char*> numbers[] = {
      {4.99, "4.99"},     {-0.0, "0"},       {100000.0, "100000"},
      {1e-6, "0.000001"}, {1e300, "1e+300"}, {9223372036854775808.0, "9.223372036854776e+18"},
  };
  for (const auto& [number, expected] : numbers) EXPECT_EQ(written(number), expected);
  EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "null");
  EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

}  // namespace
}  // namespace quillet
