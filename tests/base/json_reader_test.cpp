// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_reader.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/message_of.h"

namespace quillet {
namespace {

TEST(JsonDocument, RefusesWhatIsNoJson) {
  for (const std::string_view bytes : {"", "Page depth is limited to 10", R"({"a": 1, "b")",
                                       R"(["abc)", "[1,]", "{} {}", "[\"\xFF\"]"}) {
    EXPECT_THROW(JsonDocument{std::string(bytes)}, DecodingError) << bytes;
  }
  EXPECT_THROW(JsonDocument{std::string(5000, '[') + std::string(5000, ']')}, DecodingError);
}

TEST(JsonDocument, ReadsHalfASurrogatePairAsAReplacementAndSkipsAByteOrderMark) {
  const std::pair<const char*, const char*> cases[] = {
      {R"("cut\ud83d")", "cut\uFFFD"},
      {R"("\uDC00\uD83D\uD83D\uDE00\u0041\udbff\n")", "\uFFFD\uFFFD😀A\uFFFD\n"},
      {R"("\\ud83d\ud83d\\")", "\\ud83d\uFFFD\\"},
      {"\xEF\xBB\xBF\"\\ud83d\"", "\uFFFD"},
  };
  for (const auto& [json, text] : cases)
    EXPECT_EQ(std::string_view(JsonDocument{json}.root()), text) << json;
  for (const char* json : {R"("\ud83d\q")", R"("\ud83d\ud8)", R"("\ud83q")"})
    EXPECT_THROW(JsonDocument{json}, DecodingError) << json;
}

/// What a member with this value is read as.
template <typename T>
std::optional<T> member(std::string_view value) {
  const JsonDocument document("{\"m\":" + std::string(value) + "}");
  return memberOf<T>(document.root().get_object(), "m");
}

template <typename T>
std::string complaint(std::string_view value) {
  return messageOf<DecodingError>([&] { (void)member<T>(value); });
}

TEST(JsonMembers, WholeNumbersInEverySpelling) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  const std::pair<const char*, std::int64_t> cases[] = {
      {"1.0", 1},
      {"12e2", 1200},
      {"9007199254740992.0", 9007199254740992},
      {"9223372036854775807", kMost},
      {"-9223372036854775808", -kMost - 1},
  };
  for (const auto& [text, number] : cases) EXPECT_EQ(member<std::int64_t>(text), number) << text;
  for (const char* text : {"1.5", "9223372036854775808", "1e300", "9007199254740994.0", "\"42\""})
    EXPECT_EQ(complaint<std::int64_t>(text), "'m' is not a whole number") << text;
}

TEST(JsonMembers, AreReadAsTheAskedTypeOrNamed) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(member<std::string>("null"), std::nullopt);
  EXPECT_EQ(memberOf<bool>(JsonDocument("{}").root().get_object(), "m"), std::nullopt);
  EXPECT_EQ(member<double>("9223372036854775808"), 9223372036854775808.0);
  EXPECT_EQ(member<std::vector<std::int64_t>>("[1, 2.0]"), (std::vector<std::int64_t>{1, 2}));
  EXPECT_EQ(complaint<std::string>("42"), "'m' is not a text");
  EXPECT_EQ(complaint<double>("\"42\""), "'m' is not a number");
  EXPECT_EQ(complaint<bool>("0"), "'m' is not true or false");
  EXPECT_EQ(complaint<Instant>("\"2024-03-01\""), "'m' is not an ISO 8601 date-time");
  EXPECT_EQ(complaint<Texts>("{}"), "'m' is not a list");
  EXPECT_EQ(complaint<Texts>("[\"a\", null]"), "'m' is not a text");
}

}  // namespace
}  // namespace quillet
