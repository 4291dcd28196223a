// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app_json.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace quillet {
namespace {

std::string namesIn(const std::vector<ITunesApp>& apps) {
  std::string names;
  for (const ITunesApp& app : apps) names += app.trackName + ' ';
  return names;
}

std::string answerWith(std::string_view elements) {
  return fmt::format("\n\n\n{{\"resultCount\":9,\"results\":[{}]}}\n\n", elements);
}

TEST(SearchResponse, ReadsEveryKindOfFieldAndItsOwnWritingOfThem) {
  const std::string answer = answerWith(R"({
    "trackId": 9000000000, "trackName": "Späti \"Notes\"", "price": 0, "fileSizeBytes": "14822461",
    "releaseDate": "2017-05-18T16:42:04Z", "genres": ["Games", "Sports"], "tagline": "",
    "ratingHistogram": [1, 0, 3, 4, 5], "needsRosetta": false, "wrapperType": "software",
    "features": ["a", 1, {}], "languageCodesISO2A": [], "sellerUrl": null, "description": "Long",
    "releaseNotes": null, "screenshotUrls": ["https://a.example/1"]})");
  ITunesApp expected{.trackId = 9'000'000'000,
                     .trackName = "Späti \"Notes\"",
                     .price = 0,
                     .releaseDate = parseInternetDate("2017-05-18T16:42:04Z"),
                     .genres = {{"Games", "Sports"}},
                     .fileSizeBytes = "14822461",
                     .ratingHistogram = {{1, 0, 3, 4, 5}},
                     .tagline = "",
                     .needsRosetta = false};
  EXPECT_EQ(decodeSearchResponse(answer, AppDetail::listing), std::vector{expected});
  expected.description = "Long";
  expected.screenshotUrls = {{"https://a.example/1"}};
  expected.languageCodesISO2A.emplace();
  EXPECT_EQ(decodeSearchResponse(answer), std::vector{expected});
  JsonWriter writer;
  writeApp(writer, expected);
  EXPECT_EQ(decodeApp(JsonDocument(writer.take()).root()), expected);
}

TEST(SearchResponse, LeavesOutWhatIsNoApp) {
  for (const std::string element :
       {R"({"wrapperType":"artist","artistId":7,"artistName":"Noor"})", R"({"trackId":2})",
        R"({"trackName":"Second"})", R"({"trackId":"2","trackName":"Second"})", R"("Second")",
        R"({"trackId":2,"trackName":"Second","genres":["Games",3]})",
        R"({"trackId":2,"trackName":"Second","releaseDate":"2024-03-01"})",
        R"({"trackId":2,"trackName":"Second","releaseDate":"2024-03-01T08:00:00.5Z"})",
        R"({"trackId":2,"trackName":"Second","description":3})",
        R"({"trackId":2,"trackName":"Second","screenshotUrls":["a",3]})"}) {
    const auto answer = answerWith(R"({"trackId":1,"trackName":"First"},)" + element +
                                   R"(,{"trackId":3,"trackName":"Third"})");
    for (const AppDetail detail : {AppDetail::page, AppDetail::listing})
      EXPECT_EQ(namesIn(decodeSearchResponse(answer, detail)), "First Third ") << element;
  }
}

TEST(SearchResponse, FailsAsAWholeForAnotherShape) {
  EXPECT_EQ(namesIn(decodeSearchResponse(R"({"results":[{"wrapperType":"artist"}]})")), "");
  for (const std::string body :
       {"", "<html><body>Sorry</body></html>", "[]", "{}", R"({"results":{}})", "null",
        R"({"results":[{"trackId":"x"}]})", R"({"resultCount":1,"results":[{"trackId":1,"tra)",
        "{\"results\":[\"\xFF\"]}"}) {
    EXPECT_THROW((void)decodeSearchResponse(body), DecodingError) << body;
  }
}

}  // namespace
}  // namespace quillet
