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

TEST(JsonWriter, NestsWithTwoBlanksALevel) {
  JsonWriter writer;
  writer.beginObject();
  writer.member("\"\xFF\n", 1);
  writer.member("absent", std::optional<int>());
  writer.memberUnlessEmpty("blank", "");
  writer.member("flag", std::optional<bool>(false));
  writer.key("items");
  writer.beginArray();
  writer.value(1);
  writer.beginObject();
  writer.member("none", std::vector<std::string>());
  writer.endObject();
  writer.value(std::vector<std::string>{"a", "b"});
  writer.endArray();
  writer.memberUnlessEmpty("site", "https://a/b");
  writer.endObject();
  EXPECT_EQ(writer.take(),
            "{\n  \"\\\"\uFFFD\\n\": 1,"
            R"(
  "flag": false,
  "items": [
    1,
    {
      "none": []
    },
    [
      "a",
      "b"
    ]
  ],
  "site": "https://a/b"
})");
}

TEST(JsonWriter, EscapesAndRepairsText) {
  using namespace std::string_view_literals;
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"a\"b\\c/d"sv, R"("a\"b\\c/d")"},
      {"\b\f\n\r\t"sv, R"("\b\f\n\r\t")"},
      {"\0\x1b\x1f\x7f"sv, "\"\\u0000\\u001b\\u001f\x7f\""},
      {"é 東 😀 \u2028"sv, "\"é 東 😀 \u2028\""},
      {"\xE6\x9D\"\n"sv, "\"\uFFFD\uFFFD\\\"\\n\""},
      {"\xED\xA0\x80"sv, "\"\uFFFD\uFFFD\uFFFD\""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(written(text), expected);
}

TEST(JsonWriter, WritesNumbersAsPeopleDoAndNoneBeyondIntegers) {
  using Limits = std::numeric_limits<double>;
  const std::pair<double, const char*> numbers[] = {
      {4.99, "4.99"},
      {-0.0, "0"},
      {100000.0, "100000"},
      {1e-6, "0.000001"},
      {1e300, "1e+300"},
      {9223372036854775808.0, "9.223372036854776e+18"},
      {Limits::quiet_NaN(), "null"},
      {-Limits::infinity(), "null"}};
  for (const auto& [number, expected] : numbers) EXPECT_EQ(written(number), expected);
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

#ifndef NDEBUG
TEST(JsonWriterDeathTest, KeysOutOfOrderAreFoundInDebugBuilds) {
  JsonWriter writer;
  writer.beginObject();
  writer.member("b", 1);
  EXPECT_DEATH(writer.key("a"), "ascending");
  EXPECT_DEATH(writer.key("b"), "ascending");
}
#endif

}  // namespace
}  // namespace quillet
