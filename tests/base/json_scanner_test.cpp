// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_scanner.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace quillet {
namespace {

TEST(JsonScanner, TakesWhatEachValueHoldsAndGoesOnBehindIt) {
  JsonScanner scanner(R"( {"a" : [1, "two" ,{}], "b\"" :null,"":{"x":[[]]} , "d": "end"} rest)");
  std::string seen;
  scanner.eachMember([&](std::string_view key) {
    seen += fmt::format("({}) ", key);
    if (scanner.next() != '[') {
      seen += scanner.takeValue();
    } else {
      scanner.eachItem([&] { seen += fmt::format("{};", scanner.takeValue()); });
    }
    seen += ' ';
  });
  EXPECT_EQ(seen, R"((a) 1;"two";{}; (b\") null () {"x":[[]]} (d) "end" )");
  EXPECT_EQ(scanner.next(), 'r');
}

TEST(JsonScanner, FindsWhereAStringEndsWhereverItStands) {
  for (std::size_t length = 0; length < 20; ++length) {
    const std::string letters(length, '\xE9');
    for (const std::string& inside : {letters, letters + R"(\")", R"(\\)" + letters}) {
      EXPECT_EQ(JsonScanner('"' + inside + "\"rest").takeString(), inside) << inside;
    }
    for (const char* end : {"", "\\", "\\\"", "\n\"", "\x1F\"", "\x01\x02\"\"\"\"\"\""}) {
      EXPECT_THROW((void)JsonScanner('"' + letters + end).takeString(), DecodingError) << end;
    }
  }
}

TEST(JsonScanner, TakesNumbersAsJsonWritesThem) {
  const std::pair<const char*, std::optional<double>> rows[] = {
      {"0", 0},
      {"4.99", 4.99},
      {"-1.50", -1.5},
      {"1e3", 1000},
      {"2.5E-1", 0.25},
      {"123456789012.99", 123456789012.99},
      {"0.1234567890123456789", 0.1234567890123456789},
      {"99999999999999999999", 99999999999999999999.0},
      {"01", {}},
      {"1.", {}},
      {".5", {}},
      {"1.2.3", {}},
      {"+1", {}},
      {"-", {}},
      {"1e", {}},
      {"1e999", {}},
      {"NaN", {}},
      {"\"1\"", {}},
      {"[1]", {}},
  };
  for (const auto& [text, expected] : rows) {
    for (const char* behind : {",", " }", ""}) {
      const std::string whole = std::string(text) + behind;
      JsonScanner scanner(whole);
      EXPECT_EQ(scanner.takeNumber(), expected) << whole;
      EXPECT_EQ(scanner.next(), behind[std::strspn(behind, " ")]) << whole;
    }
  }
}

TEST(JsonScanner, RefusesWhatIsCutOff) {
  const std::string whole = R"({"a":{"b":[1,"x\""]},"c":2})";
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::string_view cut = std::string_view(whole).substr(0, size);
    EXPECT_THROW(JsonScanner(cut).skipValue(), DecodingError) << cut;
    EXPECT_THROW((void)JsonScanner(cut).findMember("z"), DecodingError) << cut;
  }
  EXPECT_EQ(JsonScanner(whole).findMember("c")->takeNumber(), 2);
  EXPECT_FALSE(JsonScanner(whole).findMember("b"));
}

}  // namespace
}  // namespace quillet
