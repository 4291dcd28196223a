// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The catalog's smaller answers: pages of reviews, bundles and stories.

#include <gtest/gtest.h>

#include "store/records/catalog_bundles_json.h"
#include "store/records/catalog_editorial_json.h"
#include "store/records/catalog_reviews_json.h"

namespace quillet {
namespace {

TEST(ReviewsPage, TellsWhetherAnotherOneFollows) {
  const std::string reviews = R"("data":[{"attributes":{"title":"Calm","review":"Does one thing.",
      "rating":"5","userName":"luna_reads","date":"2026-02-03T09:15:00Z","isEdited":true,
      "developerResponse":{"body":"Thank you!","modified":"2026-02-04T00:00:00Z"}}},
    {"attributes":{"rating":0,"review":"Hm.","isEdited":7}}])";
  const AppReview calm{.title = "Calm",
                       .body = "Does one thing.",
                       .rating = 5,
                       .userName = "luna_reads",
                       .date = parseInternetDate("2026-02-03T09:15:00Z"),
                       .isEdited = true,
                       .developerResponse = "Thank you!",
                       .developerResponseDate = parseInternetDate("2026-02-04T00:00:00Z")};
  const AppReview hm{.body = "Hm."};
  EXPECT_EQ(decodeReviewsPage("{" + reviews + R"(,"next":"/v1/more?offset=20"})"),
            (ReviewsPage{{calm, hm}, true}));
  EXPECT_EQ(decodeReviewsPage("{" + reviews + "}"), (ReviewsPage{{calm, hm}, false}));
  EXPECT_EQ(decodeReviewsPage(R"({"data":[],"next":null})"), ReviewsPage{});
}

TEST(Bundles, HoldTheirApps) {
  const StoreItem pair{1,
                       "Writer's Pair",
                       14.99,
                       "$14.99",
                       "USD",
                       "https://apps.example/1",
                       "https://img.example/b"};
  const StoreItem harbour{11, "Harbour", {}, {}, {}, {}, "https://img.example/a"};
  const std::vector<AppBundleInfo> expected{{pair, {harbour, {.id = 12}}}, {{.id = 2}, {}}};
  EXPECT_EQ(decodeBundles(R"({"data":[
    {"id":"1","attributes":{"name":"Writer's Pair","url":"https://apps.example/1",
      "artwork":{"url":"https://img.example/b"},
      "offers":[{"price":14.99,"priceFormatted":"$14.99","currencyCode":"USD"}]},
     "relationships":{"apps":{"data":[
      {"id":"11","attributes":{"name":"Harbour","url":"no address","platformAttributes":{"osx":{
        "artwork":{"url":"https://img.example/a"}}}}},
      {"id":"12"},{"attributes":{"name":"No ID"}}]}}},
    {"id":"2","attributes":[],"relationships":{"apps":7}},{"id":"first"}]})"),
            expected);
}

TEST(Stories, ReadBothFormsOfArtwork) {
  const EditorialStory flat{"1",     "Behind", "Two Notes", "How it began", "https://img.example/1",
                            "1a2b3c"};
  const EditorialStory nested{"2", "", "", "Short", "https://img.example/2", "4d5e6f"};
  const EditorialStory plain{"3", "", "", "", {}, "ffffff"};
  EXPECT_EQ(decodeStories(R"({"data":[
    {"id":"1","attributes":{"label":"Behind",
      "editorialNotes":{"name":"Two Notes","short":"x","tagline":"How it began"},
      "editorialArtwork":{"url":"https://img.example/1","bgColor":"1a2b3c"}}},
    {"id":"2","attributes":{"editorialNotes":{"short":"Short"},"editorialArtwork":{"note":"x",
      "dayCard":{"bgColor":"0"},"mediaCard":{"url":"https://img.example/2","bgColor":"4d5e6f"}}}},
    {"id":"3","attributes":{"label":7,"editorialNotes":[],"editorialArtwork":{"bgColor":"ffffff"}}},
    {"attributes":{"label":"No ID"}}]})"),
            (std::vector<EditorialStory>{flat, nested, plain}));
}

}  // namespace
}  // namespace quillet
