// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "base/json_reader.h"
#include "sample_answers.h"

namespace quillet::sandbox {
namespace {

Answer get(const std::string& path, std::multimap<std::string, std::string> query,
           Freshness freshness = Freshness::fresh) {
  return answerTo(sampleStore(), {.path = path, .query = std::move(query), .freshness = freshness});
}

std::string textOf(const JsonObject& record, std::string_view key) {
  return memberOf<std::string>(record, key).value_or("absent");
}

/// "kind id" of each result; the maker's record has its wrapper type for a kind.
std::vector<std::string> results(const Answer& answer) {
  const JsonDocument document(answer.body);
  std::vector<std::string> list;
  for (const JsonElement element : JsonArray(document.root()["results"])) {
    const JsonObject record = element.get_object();
    const auto id = memberOf<std::int64_t>(record, "trackId");
    const std::string kind = id ? textOf(record, "kind") : textOf(record, "wrapperType");
    list.push_back(fmt::format("{} {}", kind, id.value_or(0)));
  }
  EXPECT_EQ(std::int64_t(document.root()["resultCount"]), static_cast<std::int64_t>(list.size()));
  return list;
}

TEST(Endpoints, refuseWhatTheyDoNotKnow) {
  EXPECT_EQ(get("/nothing", {}).status, 404);
  EXPECT_EQ(get("/search", {{"term", "notes"}, {"country", "zz"}}).status, 400);
  EXPECT_EQ(get("/search", {{"term", "notes"}, {"entity", "toaster"}}).status, 400);
  const Answer answer = get("/lookup", {{"id", "409183694"}, {"country", "zz"}});
  EXPECT_EQ(answer.status, 400);
  EXPECT_EQ(std::string_view(JsonDocument(answer.body).root()["errorMessage"]),
            "Invalid value(s) for key(s): [country]");
  EXPECT_TRUE(results(get("/search", {{"country", "us"}})).empty());
}

TEST(Endpoints, lookupFindsAppsAndMakers) {
  struct Case {
    const char* situation;
    std::multimap<std::string, std::string> query;
    std::vector<std::string> expected;
  };
  const Case cases[] = {
      {"asked order, unknown ones left out",
       {{"id", "824183456, 5,x,,409183694"}},
       {"mac-software 824183456", "mac-software 409183694"}},
      {"a shared ID is the iOS app", {{"id", "1480068668"}}, {"software 1480068668"}},
      {"unless the Mac's is asked for",
       {{"id", "1480068668"}, {"entity", "macSoftware"}},
       {"mac-software 1480068668"}},
      {"not sold there", {{"id", "1402277841"}, {"country", "us"}}, {}},
      {"bundle IDs",
       {{"bundleId", "com.amberfield.quillink,no.such.app,com.hazelworks.rawmeadow"}},
       {"software 1480068668", "mac-software 1289583905"}},
      {"a maker's apps for one shelf",
       {{"id", "998812345"}, {"entity", "macSoftware"}, {"country", "jp"}},
       {"artist 0", "mac-software 1398805512", "mac-software 1402277841"}},
      {"a maker's apps, those sold",
       {{"id", "998812345"}, {"entity", "software"}, {"country", "us"}},
       {"artist 0", "software 1398805512"}},
      {"a maker's apps, limited",
       {{"id", "701900233"}, {"entity", "software"}, {"limit", "1"}},
       {"artist 0", "software 1061100872"}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(results(get("/lookup", c.query)), c.expected) << c.situation;
}

/// Part of the raw text of the single record of an app.
void expectRecord(const char* situation, std::multimap<std::string, std::string> query,
                  const std::vector<std::string>& parts, const std::vector<std::string>& absent,
                  Freshness freshness = Freshness::fresh) {
  const std::string body = get("/lookup", std::move(query), freshness).body;
  for (const std::string& part : parts)
    EXPECT_NE(body.find(part), std::string::npos) << situation << ": " << part;
  for (const std::string& part : absent)
    EXPECT_EQ(body.find(part), std::string::npos) << situation << ": " << part;
}

TEST(Endpoints, recordsTellWhatTheServiceTells) {
  expectRecord("paid in yen", {{"id", "1402277841"}, {"country", "jp"}},
               {"\"price\": 2000,", "\"formattedPrice\": \"¥2,000\"", "\"currency\": \"JPY\""}, {});
  expectRecord("no price", {{"id", "1701200834"}}, {"\"currency\": \"USD\""},
               {"\"price\"", "formattedPrice", "fileSizeBytes"});
  expectRecord("Mac ratings kept back as 0", {{"id", "1289583905"}},
               {"\"averageUserRating\": 0,", "\"userRatingCount\": 0,"}, {});
  expectRecord("Mac ratings kept back whole", {{"id", "1330554120"}}, {"\"version\": \"2.2.2\""},
               {"averageUserRating", "userRatingCount"});
  expectRecord("from a forgotten cache", {{"id", "824183456"}}, {"\"version\": \"2.6.4\""},
               {"2.6.5"}, Freshness::stale);
  expectRecord("control characters", {{"id", "1666013130"}},
               {R"(Evil\u001b[31mRed\u001b[0m\u0007 \"App\"\r\n)"}, {"\x1b"});
}

}  // namespace
}  // namespace quillet::sandbox
