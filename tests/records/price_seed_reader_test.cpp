// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_seed_reader.h"

#include <gtest/gtest.h>

#include "base/dates.h"
#include "base/errors.h"
#include "store/records/price_seed_error.h"
#include "store/records/seed_manifest.h"

namespace quillet {
namespace {

std::string fileOf(std::string_view apps) {
  return fmt::format(R"({{"schema":1,"storefront":{{"country":"us","apps":[{}]}}}})", apps);
}

std::string pointsText(std::span<const PriceSeed::Point> points) {
  std::string text;
  for (const auto& point : points) text += fmt::format(" {}={}", formatDay(point.day), point.price);
  return text;
}

/// What a reader makes of a file: its apps, or the sentence that ends it.
std::string readingOf(std::string_view file) {
  std::string text;
  try {
    PriceSeedReader reader(TextBuffer::of(file), "us");
    while (reader.next()) {
      text += fmt::format("{}:{};", reader.entry().trackId, pointsText(reader.points()));
    }
    return text;
  } catch (const PriceSeedError& error) {
    return text + error.what();
  }
}

constexpr const char* kUnreadable = "The published price data for 'us' could not be read.";
constexpr const char* kNewer = "The price data is newer than this build understands.";
constexpr const char* kEmpty = "No price data published for 'us'.";

TEST(PriceSeedReader, ReadsWhatIsSaidOfAnApp) {
  PriceSeedReader reader(TextBuffer::of("\xEF\xBB\xBF"
                                        R"({"storefront":{"apps":[
        {"p":[{"v":4.99,"d":"2024-02-29","x":[{}]},{"d":"2026-11-12","v":0}],"zz":{"p":1},
         "k":"mac-software","c":"USD","g":"2026-11-21","s":"","n":"A \"b\" \u00e9","a":"1480068668" },
        {"a":"2","n":"\q","s":7,"g":0,"p":[{"d":"2026-01-01","v":1}]}
      ],"country":"us"},"generatedAt":"2026-11-20T03:00:00Z","schema":0})"),
                         "us");
  EXPECT_EQ(reader.generatedAt(), parseInternetDate("2026-11-20T03:00:00Z"));
  std::string apps;
  while (reader.next()) {
    const PriceSeed::Entry& app = reader.entry();
    for (const SeedText& text : {app.name, app.seller, app.currency})
      apps += text.text().value_or("none") + ", ";
    if (app.goneSince) apps += "gone " + formatDay(*app.goneSince) + ", ";
    apps +=
        fmt::format("{} {}:{}; ", isMacKind(app.kind), app.trackId, pointsText(reader.points()));
  }
  EXPECT_EQ(apps,
            "A \"b\" é, none, USD, gone 2026-11-21, true 1480068668: 2024-02-29=4.99 2026-11-12=0; "
            "none, none, none, false 2: 2026-01-01=1; ");
}

TEST(PriceSeedReader, PassesOverWhatIsNoAppOrPointAndPutsDaysInOrder) {
  const std::pair<const char*, const char*> rows[] = {
      {R"({"a":"7","p":[{"d":"2026-03-02","v":2},{"d":"2026-03-01","v":1},
         {"d":"2026-03-02","v":3}]})",
       "7: 2026-03-01=1 2026-03-02=3;"},
      {R"({"a":"7","p":[{"d":"9999-99-99","v":1},{"d":"2026-02-29","v":1},{"d":"2026-2-09","v":1},
         {"d":"2026-03-0x","v":1},{"d":"+026-03-01","v":1},{"d":"2026-03-01T00","v":1},
         {"d":1,"v":1},{"v":1},{"d":null,"v":1},{"d":"0001-01-01","v":8}]})",
       "7: 0001-01-01=8;"},
      {R"({"a":"7","p":[{"d":"2026-03-01","v":"1"},{"d":"2026-03-02","v":-1},
         {"d":"2026-03-03","v":1e999},{"d":"2026-03-04","v":NaN},{"d":"2026-03-05"},
         {"d":"2026-03-06","v":1e10},{"d":"2026-03-07","v":[1]},7,[],{"d":"2026-03-08","v":5}]})",
       "7: 2026-03-08=5;"},
      {R"({"a": 7 ,"p":[{"d":"2026-03-01","v":1}]})", "7: 2026-03-01=1;"},
  };
  for (const auto& [app, expected] : rows) EXPECT_EQ(readingOf(fileOf(app)), expected) << app;
  for (const char* app :
       {R"({"a":"x","p":[{"d":"2026-03-01","v":1}]})", R"({"a":"7"})", R"({"a":"7","p":{}})",
        R"({"a":"-7","p":[{"d":"2026-03-01","v":1}]})", R"({"p":[{"d":"2026-03-01","v":1}]})",
        R"({"a":"99999999999999999999","p":[{"d":"2026-03-01","v":1}]})", "null", "[[[]]]"}) {
    EXPECT_EQ(readingOf(fileOf(app)), kEmpty) << app;
  }
}

TEST(PriceSeedReader, EndsInASentenceWhereThereIsNothingToRead) {
  const std::string app = R"({"a":"7","p":[{"d":"2026-03-01","v":1}]})";
  const std::string whole = fileOf(app);
  const std::string bodies[] = {
      "", "<html>", "[1]", R"({"storefront":{"apps":[]}})",
      R"({"schema":"1","storefront":{"apps":[]}})", R"({"schema":1})",
      R"({"schema":1,"storefront":{"apps":{}}})", fileOf("{\"a\":\"7\",\"n\":\"\xFF\"}"),
      // Cut in an app and behind it.
      whole.substr(0, whole.size() - 9), whole.substr(0, whole.size() - 3) + "}"};
  for (const std::string& file : bodies) EXPECT_EQ(readingOf(file), kUnreadable) << file;
  EXPECT_EQ(readingOf(fileOf(app + ",")), std::string("7: 2026-03-01=1;") + kUnreadable);
  EXPECT_EQ(readingOf(R"({"schema":2,"regions":7})"), kNewer);
  EXPECT_EQ(readingOf(R"({"schema":99999999999999999999})"), kNewer);
  EXPECT_EQ(readingOf(fileOf("")), kEmpty);
}

TEST(SeedManifest, ReadsTheStorefrontsThatArePublished) {
  EXPECT_EQ(
      decodeSeedManifest(R"({"schema":1,"generatedAt":"2026-11-20T03:00:00Z","storefronts":[
        {"country":"US","file":"changes-us.json.gz","apps":12},{"file":"x"},7,{"country":"de"}]})"),
      (SeedManifest{1, "2026-11-20T03:00:00Z", {{"us", "changes-us.json.gz", 12}, {"de", "", 0}}}));
  EXPECT_EQ(decodeSeedManifest(R"({"schema":3})"), (SeedManifest{3, "", {}}));
  for (const char* body : {"", "[]", "{}", R"({"schema":"1"})"})
    EXPECT_THROW((void)decodeSeedManifest(body), DecodingError) << body;
}

}  // namespace
}  // namespace quillet
