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
  const std::string reviews = R"("data":[{"id":"1","attributes":{"rating":"4","title":"Fine"}},
    {"id":"2","attributes":{"rating":0,"review":"Hm.","isEdited":7,"userName":"tomo"}}])";
  const AppReview fine{.title = "Fine", .rating = 4};
  const AppReview hm{.body = "Hm.", .userName = "tomo"};
  EXPECT_EQ(decodeReviewsPage("{" + reviews + R"(,"next":"/v1/more?offset=20"})"),
            (ReviewsPage{{fine, hm}, true}));
  EXPECT_EQ(decodeReviewsPage("{" + reviews + "}"), (ReviewsPage{{fine, hm}, false}));
  EXPECT_EQ(decodeReviewsPage(R"({"data":[],"next":null})"), ReviewsPage{});
}

TEST(Bundles, HoldTheirApps) {
  AppBundleInfo pair;
  pair.bundle = {1500000001,
                 "Writer's Pair",
                 14.99,
                 "$14.99",
                 "USD",
                 "https://apps.example.com/us/app-bundle/id1500000001",
                 "https://img.example.com/b/{w}x{h}.{f}"};
  pair.apps = {{11, "Harbour", 9.99, "$9.99", "USD", {}, "https://img.example.com/a/{w}x{h}.{f}"},
               {12, "", {}, {}, {}, {}, {}}};
  AppBundleInfo bare;
  bare.bundle.id = 1500000002;
  EXPECT_EQ(decodeBundles(R"({"data":[
    {"id":"1500000001","attributes":{"name":"Writer's Pair",
      "url":"https://apps.example.com/us/app-bundle/id1500000001",
      "artwork":{"url":"https://img.example.com/b/{w}x{h}.{f}"},
      "offers":[{"price":14.99,"priceFormatted":"$14.99","currencyCode":"USD"}]},
     "relationships":{"apps":{"data":[
      {"id":"11","attributes":{"name":"Harbour","url":"no address","platformAttributes":{"osx":{
        "artwork":{"url":"https://img.example.com/a/{w}x{h}.{f}"}}},
        "offers":[{"price":9.99,"priceFormatted":"$9.99","currencyCode":"USD"}]}},
      {"id":"12"},{"attributes":{"name":"No ID"}}]}}},
    {"id":"1500000002","attributes":[],"relationships":{"apps":7}},
    {"id":"first","attributes":{"name":"x"}}]})"),
            (std::vector<AppBundleInfo>{pair, bare}));
}

TEST(Stories, ReadBothFormsOfArtwork) {
  const EditorialStory flat{"1",
                            "Behind the App",
                            "Two Notes",
                            "How Harbour came to be",
                            "https://img.example.com/{w}x{h}.{f}",
                            "1a2b3c"};
  EditorialStory nested = flat;
  nested.id = "2";
  EditorialStory plain{"3", "", "", "", {}, "ffffff"};
  EXPECT_EQ(decodeStories(R"({"data":[
    {"id":"1","attributes":{"label":"Behind the App",
      "editorialNotes":{"name":"Two Notes","short":"x","tagline":"How Harbour came to be"},
      "editorialArtwork":{"url":"https://img.example.com/{w}x{h}.{f}","bgColor":"1a2b3c"}}},
    {"id":"2","attributes":{"label":"Behind the App",
      "editorialNotes":{"name":"Two Notes","short":"How Harbour came to be"},
      "editorialArtwork":{"note":"x","dayCard":{"bgColor":"0"},"mediaCard":{
        "url":"https://img.example.com/{w}x{h}.{f}","bgColor":"1a2b3c"}}}},
    {"id":"3","attributes":{"label":7,"editorialNotes":[],"editorialArtwork":{"bgColor":"ffffff"}}},
    {"attributes":{"label":"No ID"}}]})"),
            (std::vector<EditorialStory>{flat, nested, plain}));
}

}  // namespace
}  // namespace quillet
