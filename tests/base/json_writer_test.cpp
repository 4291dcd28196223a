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
  writer.member("absent", std::optional<int>());
  writer.memberUnlessEmpty("address", "https://a/b");
  writer.memberUnlessEmpty("blank", "");
  writer.key("empty");
  writer.beginObject();
  writer.endObject();
  writer.member("flag", std::optional<bool>(false));
  writer.key("items");
  writer.beginArray();
  writer.value(1);
  writer.beginObject();
  writer.member("none", std::vector<std::string>());
  writer.member("when", Instant{std::chrono::seconds{1709280000}});
  writer.endObject();
  writer.value(std::vector<std::string>{"a", "b"});
  writer.endArray();
  writer.endObject();
  EXPECT_EQ(writer.take(), R"({
  "address": "https://a/b",
  "empty": {},
  "flag": false,
  "items": [
    1,
    {
      "none": [],
      "when": "2024-03-01T08:00:00Z"
    },
    [
      "a",
      "b"
    ]
  ]
})");
}

TEST(JsonWriter, EscapesAndRepairsText) {
  using namespace std::string_view_literals;
  const std::pair<std::string_view, std::string_view> cases[] = {
      {""sv, R"("")"},
      {"a\"b\\c/d"sv, R"("a\"b\\c/d")"},
      {"\b\f\n\r\t"sv, R"("\b\f\n\r\t")"},
      {"\0\x1b\x1f\x7f"sv, "\"\\u0000\\u001b\\u001f\x7f\""},
      {"é 東 😀 \u2028"sv, "\"é 東 😀 \u2028\""},
      {"a\xFF"
       "b"sv,
       "\"a\uFFFDb\""},
      {"\xC3"sv, "\"\uFFFD\""},
      {"\xE6\x9D\"\n"sv, "\"\uFFFD\uFFFD\\\"\\n\""},
      {"\xED\xA0\x80"sv, "\"\uFFFD\uFFFD\uFFFD\""},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(written(text), expected);
  }
  JsonWriter writer;
  writer.beginObject();
  writer.member("k\"\xFF\n", 1);
  writer.endObject();
  EXPECT_EQ(writer.take(), "{\n  \"k\\\"\uFFFD\\n\": 1\n}");
}

TEST(JsonWriter, Numbers) {
  const std::pair<double, const char*> numbers[] = {
      {5.0, "5"},
      {4.99, "4.99"},
      {-0.0, "0"},
      {1e300, "1e+300"},
      {-5e-324, "-5e-324"},
      {100000.0, "100000"},
      {-0.0000012345678901234567, "-0.0000012345678901234567"},
      {36028797018963968.0, "36028797018963968"},
      {-18446744073709551616.0, "-1.8446744073709552e+19"},
      {std::numeric_limits<double>::quiet_NaN(), "null"},
      {-std::numeric_limits<double>::infinity(), "null"},
  };
  for (const auto& [number, expected] : numbers) {
    EXPECT_EQ(written(number), expected);
  }
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
  EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
  EXPECT_EQ(written(true), "true");
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
