// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app_json.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace quillet {
namespace {

std::vector<std::string> namesIn(const std::vector<ITunesApp>& apps) {
  std::vector<std::string> names;
  for (const ITunesApp& app : apps) names.push_back(app.trackName);
  return names;
}

std::string answerWith(std::string_view elements) {
  return fmt::format("\n\n\n{{\"resultCount\":9,\"results\":[{}]}}\n\n", elements);
}

TEST(SearchResponse, ReadsEveryKindOfField) {
  const auto apps = decodeSearchResponse(answerWith(R"({
    "trackId": 1480068668, "trackName": "Harbour", "kind": "mac-software", "price": 0,
    "formattedPrice": "Free", "fileSizeBytes": "14822461", "averageUserRating": 4,
    "userRatingCount": 1415, "releaseDate": "2017-05-18T16:42:04Z",
    "genres": ["Productivity", "Business"], "wrapperType": "software", "features": ["a", 1, {}],
    "isGameCenterEnabled": false, "artistId": 284971784, "minimumOsVersion": "10.13.0",
    "languageCodesISO2A": [], "sellerUrl": null})"));
  ASSERT_EQ(apps.size(), 1U);
  ITunesApp expected;
  expected.trackId = 1480068668;
  expected.trackName = "Harbour";
  expected.kind = "mac-software";
  expected.price = 0;
  expected.formattedPrice = "Free";
  expected.fileSizeBytes = "14822461";
  expected.averageUserRating = 4;
  expected.userRatingCount = 1415;
  expected.releaseDate = parseInternetDate("2017-05-18T16:42:04Z");
  expected.genres = std::vector<std::string>{"Productivity", "Business"};
  expected.artistId = 284971784;
  expected.minimumOsVersion = "10.13.0";
  expected.languageCodesISO2A.emplace();
  EXPECT_EQ(apps.front(), expected);
}

TEST(SearchResponse, LeavesOutWhatIsNoApp) {
  const std::string good = R"({"trackId":1,"trackName":"First"},)";
  struct Row {
    std::string_view what;
    std::string element;
  };
  const Row rows[] = {
      {"a developer's own record", R"({"wrapperType":"artist","artistId":7,"artistName":"Noor"})"},
      {"no name", R"({"trackId":2})"},
      {"no ID", R"({"trackName":"Second"})"},
      {"ID as text", R"({"trackId":"2","trackName":"Second"})"},
      {"ID with a fraction", R"({"trackId":2.5,"trackName":"Second"})"},
      {"number among the genres", R"({"trackId":2,"trackName":"Second","genres":["Games",3]})"},
      {"day without a time", R"({"trackId":2,"trackName":"Second","releaseDate":"2024-03-01"})"},
      {"date with fractions",
       R"({"trackId":2,"trackName":"Second","releaseDate":"2024-03-01T08:00:00.5Z"})"},
      {"number as description", R"({"trackId":2,"trackName":"Second","description":3})"},
      {"number among the pictures",
       R"({"trackId":2,"trackName":"Second","screenshotUrls":["a",3]})"},
      {"no object", R"("Second")"},
  };
  for (const Row& row : rows) {
    const auto answer = answerWith(good + row.element + R"(,{"trackId":3,"trackName":"Third"})");
    for (const AppDetail detail : {AppDetail::page, AppDetail::listing}) {
      const auto apps = decodeSearchResponse(answer, detail);
      EXPECT_EQ(namesIn(apps), (std::vector<std::string>{"First", "Third"})) << row.what;
    }
  }
}

TEST(SearchResponse, AListingLeavesOutWhatOnlyPagesShow) {
  const std::string answer = answerWith(
      R"({"trackId":1,"trackName":"First","genres":["Games"],"description":"Long",)"
      R"("releaseNotes":null,"screenshotUrls":["https://a.example/1"],"supportedDevices":["Mac"]})");
  ITunesApp expected = decodeSearchResponse(answer).at(0);
  EXPECT_EQ(expected.description, "Long");
  expected.description.reset();
  expected.screenshotUrls.reset();
  expected.supportedDevices.reset();
  EXPECT_EQ(decodeSearchResponse(answer, AppDetail::listing).at(0), expected);
}

TEST(SearchResponse, FailsAsAWholeForAnotherShape) {
  const std::string deep = std::string(2000, '[') + std::string(2000, ']');
  for (const std::string& body :
       {std::string(), std::string("<html><body>Sorry</body></html>"), std::string("[]"),
        std::string("{}"), std::string(R"({"results":{}})"), std::string(R"({"results":null})"),
        std::string(R"({"resultCount":1,"results":[{"trackId":1,"tra)"), deep,
        answerWith("{\"trackId\":1,\"trackName\":\"\xFF\"}"), std::string("null")}) {
    EXPECT_THROW((void)decodeSearchResponse(body), DecodingError) << body.substr(0, 40);
  }
}

TEST(SearchResponse, ReadsWhatCameAfterAByteOrderMarkOrDeepNesting) {
  const std::string nested = std::string(200, '[') + std::string(200, ']');
  const auto apps = decodeSearchResponse(
      "\xEF\xBB\xBF" + answerWith(R"({"trackId":1,"trackName":"First","extra":)" + nested + "}"));
  EXPECT_EQ(namesIn(apps), std::vector<std::string>{"First"});
}

TEST(AppRecord, ReadsBackWhatItWrote) {
  ITunesApp app;
  app.trackId = 9'000'000'000;
  app.trackName = "Späti \"Notes\"";
  app.price = 4.99;
  app.releaseDate = parseInternetDate("2020-02-29T23:59:59Z");
  app.ratingHistogram = std::vector<std::int64_t>{1, 0, 3, 4, 5};
  app.screenshotUrls = std::vector<std::string>{"https://a.example/1.jpg"};
  app.needsRosetta = false;
  app.tagline = "";
  JsonWriter writer;
  writeApp(writer, app);
  const JsonDocument document(writer.take());
  EXPECT_EQ(decodeApp(document.root()), app);
}

}  // namespace
}  // namespace quillet
