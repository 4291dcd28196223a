// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "base/json_reader.h"
#include "sample_answers.h"

namespace quillet::sandbox {
namespace {

/// "kind id" of each result; the maker's record has its wrapper type for a kind.
std::vector<std::string> results(const Answer& answer) {
  const JsonDocument document(answer.body);
  std::vector<std::string> list;
  for (const JsonElement element : JsonArray(document.root()["results"])) {
    const JsonObject record = element.get_object();
    const auto id = memberOf<std::int64_t>(record, "trackId");
    const auto kind = memberOf<std::string>(record, id ? "kind" : "wrapperType");
    list.push_back(fmt::format("{} {}", kind.value_or("absent"), id.value_or(0)));
  }
  EXPECT_EQ(std::int64_t(document.root()["resultCount"]), static_cast<std::int64_t>(list.size()));
  return list;
}

TEST(Endpoints, refuseWhatTheyDoNotKnow) {
  EXPECT_EQ(answered("/nothing").status, 404);
  EXPECT_EQ(answered("/search?term=notes&country=zz").status, 400);
  EXPECT_EQ(answered("/search?term=notes&entity=toaster").status, 400);
  const Answer answer = answered("/lookup?id=409183694&country=zz");
  EXPECT_EQ(answer.status, 400);
  EXPECT_EQ(std::string_view(JsonDocument(answer.body).root()["errorMessage"]),
            "Invalid value(s) for key(s): [country]");
  EXPECT_TRUE(results(answered("/search?country=us")).empty());
}

TEST(Endpoints, lookupFindsAppsAndMakers) {
  const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
      {"asked order, unknown ones left out",
       "id=824183456, 5,x,,409183694",
       {"mac-software 824183456", "mac-software 409183694"}},
      {"a shared ID is the iOS app", "id=1480068668", {"software 1480068668"}},
      {"unless the Mac's is asked for",
       "id=1480068668&entity=macSoftware",
       {"mac-software 1480068668"}},
      {"not sold there", "id=1402277841&country=us", {}},
      {"bundle IDs",
       "bundleId=com.amberfield.quillink,no.such.app,com.hazelworks.rawmeadow",
       {"software 1480068668", "mac-software 1289583905"}},
      {"a maker's apps for one shelf",
       "id=998812345&entity=macSoftware&country=jp",
       {"artist 0", "mac-software 1398805512", "mac-software 1402277841"}},
      {"a maker's apps, those sold",
       "id=998812345&entity=software&country=us",
       {"artist 0", "software 1398805512"}},
      {"a maker's apps, limited",
       "id=701900233&entity=software&limit=1",
       {"artist 0", "software 1061100872"}},
  };
  for (const auto& [situation, query, expected] : cases)
    EXPECT_EQ(results(answered(fmt::format("/lookup?{}", query))), expected) << situation;
}

TEST(Endpoints, recordsTellWhatTheServiceTells) {
  using Texts = std::vector<std::string>;
  const std::tuple<const char*, const char*, Texts, Texts> cases[] = {
      {"yen", "1402277841&country=jp", {R"("price": 2000,)", R"("¥2,000")", R"("JPY")"}, {}},
      {"no price", "1701200834", {R"("USD")"}, {R"("price")", "formattedPrice", "fileSizeBytes"}},
      {"Mac ratings kept back as 0", "1289583905", {R"("userRatingCount": 0,)"}, {}},
      {"Mac ratings kept back whole", "1330554120", {R"("2.2.2")"}, {"userRatingCount"}},
      {"controls", "1666013130", {R"(Evil\u001b[31mRed\u001b[0m\u0007 \"App\"\r\n)"}, {"\x1b"}},
  };
  for (const auto& [situation, id, parts, absent] : cases) {
    const std::string body = answered(fmt::format("/lookup?id={}", id)).body;
    for (const std::string& part : parts)
      EXPECT_NE(body.find(part), std::string::npos) << situation << ": " << part;
    for (const std::string& part : absent)
      EXPECT_EQ(body.find(part), std::string::npos) << situation << ": " << part;
  }
}

}  // namespace
}  // namespace quillet::sandbox
