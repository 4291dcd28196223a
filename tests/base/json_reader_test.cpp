// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_reader.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace quillet {
namespace {

TEST(JsonDocument, RefusesWhatIsNoJson) {
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"plain text", "CustomerReviews RSS page depth is limited to 10"},
      {"truncated object", R"({"a": 1, "b")"},
      {"truncated text", R"(["abc)"},
      {"trailing comma", "[1,]"},
      {"two documents", "{} {}"},
      {"invalid UTF-8", "[\"\xFF\"]"},
      {"too deep", std::string(5000, '[') + std::string(5000, ']')},
  };
  for (const auto& [situation, bytes] : cases) {
    EXPECT_THROW(JsonDocument{bytes}, DecodingError) << situation;
  }
}

TEST(JsonDocument, AllowsAMarkAndLineFeedsAround) {
  for (const char* bytes : {"[1]", "\n\n [1] \r\n\n", "\xEF\xBB\xBF[1]", "\xEF\xBB\xBF\n[1]\n"}) {
    EXPECT_TRUE(JsonDocument{bytes}.root().is_array());
  }
}

TEST(JsonDocument, ReadsHalfASurrogatePairAsAReplacement) {
  const std::pair<const char*, const char*> cases[] = {
      {R"("cut\ud83d")", "cut\uFFFD"},
      {R"("\uDC00\uD83D\uD83D\uDE00\u0041\udbff\n")", "\uFFFD\uFFFD😀A\uFFFD\n"},
      {R"("\\ud83d\ud83d\\")", R"(\ud83d)"
                               "\uFFFD\\"},
      {"\xEF\xBB\xBF\"\\ud83d\"", "\uFFFD"},
  };
  for (const auto& [json, text] : cases) {
    EXPECT_EQ(std::string_view(JsonDocument{json}.root()), text) << json;
  }
  for (const char* json : {R"("\ud83d\q")", R"("\ud83d\ud8)", R"("\ud83q")"}) {
    EXPECT_THROW(JsonDocument{json}, DecodingError) << json;
  }
}

class JsonMembers : public testing::Test {
 protected:
  JsonDocument document_{R"({
    "text": "é\n", "null": null, "flag": true, "zero": 0,
    "whole": 42, "wholeAsFraction": 1.0, "exponent": 12e2, "fraction": 1.5,
    "longest": 9223372036854775807, "shortest": -9223372036854775808,
    "tooLong": 9223372036854775808, "hugeFraction": 1e300, "exact": 9007199254740992.0,
    "inexact": 9007199254740994.0, "numberText": "42",
    "date": "2024-03-01T08:00:00Z", "badDate": "2024-03-01",
    "texts": ["a", "b"], "mixed": ["a", 1], "holed": ["a", null], "numbers": [1, 2.0],
    "object": {}
  })"};

  template <typename T>
  std::optional<T> member(std::string_view key) {
    return memberOf<T>(document_.root().get_object(), key);
  }

  template <typename T>
  std::string complaint(std::string_view key) {
    try {
      (void)member<T>(key);
    } catch (const DecodingError& error) {
      return error.what();
    }
    return "none";
  }
};

TEST_F(JsonMembers, AreReadAsTheAskedType) {
  EXPECT_EQ(member<std::string>("text"), "é\n");
  EXPECT_EQ(member<std::string>("null"), std::nullopt);
  EXPECT_EQ(member<std::string>("missing"), std::nullopt);
  EXPECT_EQ(member<bool>("flag"), true);
  EXPECT_EQ(member<double>("zero"), 0.0);
  EXPECT_EQ(member<double>("tooLong"), 9223372036854775808.0);
  EXPECT_EQ(member<Instant>("date"), Instant{std::chrono::seconds{1709280000}});
  EXPECT_EQ(member<std::vector<std::string>>("texts"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(member<std::vector<std::int64_t>>("numbers"), (std::vector<std::int64_t>{1, 2}));
}

TEST_F(JsonMembers, WholeNumbersInEverySpelling) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"wholeAsFraction", 1},
      {"exponent", 1200},
      {"longest", std::numeric_limits<std::int64_t>::max()},
      {"shortest", std::numeric_limits<std::int64_t>::min()},
      {"exact", 9007199254740992},
  };
  for (const auto& [key, expected] : cases) {
    EXPECT_EQ(member<std::int64_t>(key), expected) << key;
  }
  for (const char* key : {"fraction", "tooLong", "hugeFraction", "inexact", "numberText", "flag"}) {
    EXPECT_EQ(complaint<std::int64_t>(key), "'" + std::string(key) + "' is not a whole number");
  }
}

TEST_F(JsonMembers, OfAnotherTypeAreNamed) {
  EXPECT_EQ(complaint<std::string>("whole"), "'whole' is not a text");
  EXPECT_EQ(complaint<double>("numberText"), "'numberText' is not a number");
  EXPECT_EQ(complaint<bool>("zero"), "'zero' is not true or false");
  EXPECT_EQ(complaint<Instant>("badDate"), "'badDate' is not an ISO 8601 date-time");
  EXPECT_EQ(complaint<std::vector<std::string>>("object"), "'object' is not a list");
  EXPECT_EQ(complaint<std::vector<std::string>>("holed"), "'holed' is not a text");
}

}  // namespace
}  // namespace quillet
