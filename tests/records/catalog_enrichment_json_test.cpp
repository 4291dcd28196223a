// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_enrichment_json.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

Instant at(std::string_view date) { return parseInternetDate(date).value(); }

TEST(Enrichment, ReadsAFullAnswer) {
  const std::string body = R"({"data":{"id":"1480068668","attributes":{
    "deviceFamilies":["mac"], "hasSafariExtension":true, "isSiriSupported":true,
    "isAppleWatchSupported":false, "isGameCenterEnabled":false,
    "editorialBadgeInfo":"Editors' Choice", "editorialNotes":{"short":"Notes by the water"},
    "userRating":{"value":"4.6","ratingCount":"1200","ratingCountList":[10,20,70,200,900]},
    "chartPositions":{"appStore":{"chart":"Top Paid","genreName":"Productivity",
      "position":"12","chartLink":"https://apps.example.com/us/charts/36"}},
    "platformAttributes":{"osx":{
      "versionHistory":[
        {"versionDisplay":" 2.1","releaseDate":"2026-03-01","releaseNotes":"Faster.",
         "releaseTimestamp":"2026-03-01T00:30:00.000-08:00"},
        {"versionDisplay":"2.0","releaseDate":"2025-11-20","releaseTimestamp":7}],
      "requirementsString":"Requires macOS 13.0 or later.","runsOnAppleSilicon":true,
      "runsOnIntel":true,"requiresRosetta":false,"minimumMacOSVersion":"13.0",
      "supportsGameController":false,"isVisionOSCompatible":false,"isXROSCompatible":true}}},
    "relationships":{"reviews":{"data":[{"attributes":{"title":"Calm"}}],"next":"x"},
      "top-in-apps":{"data":[{"id":"17","attributes":{"name":"Plus"}}]},
      "related-editorial-items":{"data":[{"id":"1650000001"},{"type":"x"},{"id":1650000002}]}}}})";
  const AppEnrichment expected{
      .versions = {{"2.1", at("2026-03-01T08:30:00Z"), "Faster."},
                   {"2.0", at("2025-11-20T00:00:00Z"), {}}},
      .reviews = {{.title = "Calm"}},
      .inAppPurchases = {{.productId = "17", .name = "Plus"}},
      .rating = AppRating{4.6, 1200, {10, 20, 70, 200, 900}},
      .editorialBadge = "Editors' Choice",
      .tagline = "Notes by the water",
      .editorialStoryIds = {"1650000001", "1650000002"},
      .platform = PlatformInfo{.requirements = "Requires macOS 13.0 or later.",
                               .deviceFamilies = {"mac"},
                               .runsOnAppleSilicon = true,
                               .runsOnIntel = true,
                               .requiresRosetta = false,
                               .minimumMacOSVersion = "13.0",
                               .isGameCenterEnabled = false,
                               .supportsGameController = false,
                               .hasSafariExtension = true,
                               .isSiriSupported = true,
                               .isAppleWatchSupported = false,
                               .isXROSCompatible = false},
      .chartPosition =
          ChartPosition{"Top Paid", "Productivity", 12, "https://apps.example.com/us/charts/36"}};
  EXPECT_EQ(decodeEnrichment(body, Platform::mac), expected);
}

TEST(Enrichment, ReadsTheOtherFormsForTheAskedPlatform) {
  const std::string body = R"({"data":[{"attributes":{
    "versionHistory":[{"versionDisplay":"2.1","releaseDate":"2026-03-01T08:30:00Z"}],
    "editorialBadgeInfo":{"nameForDisplay":"Editors' Choice"},
    "editorialNotes":{"tagline":"Notes by the water","short":"Unused"},
    "platformAttributes":{"ios":{"isXROSCompatible":true},"osx":{"requiresRosetta":true}}}}]})";
  const AppEnrichment expected{.versions = {{"2.1", at("2026-03-01T08:30:00Z"), {}}},
                               .editorialBadge = "Editors' Choice",
                               .tagline = "Notes by the water",
                               .platform = PlatformInfo{.isXROSCompatible = true}};
  EXPECT_EQ(decodeEnrichment(body, Platform::iphone), expected);
}

TEST(Enrichment, OneBadBlockCostsOnlyItself) {
  const AppEnrichment expected{.versions = {{"1.0", at("2024-03-01T00:00:00Z"), {}}}};
  for (const char* bad :
       {R"("userRating":null)",
        R"("userRating":{"value":"good","ratingCount":[],"ratingCountList":[1,2,3]})",
        R"("chartPositions":{"appStore":{"chart":"Top","position":"?"}})",
        R"("chartPositions":{"appStore":{"position":0}})", R"("editorialBadgeInfo":{"kind":"x"})",
        R"("editorialNotes":"text")", R"("platformAttributes":[1])",
        R"("platformAttributes":{"mac":{"runsOnIntel":"yes","deviceFamilies":7}})"}) {
    const std::string body = fmt::format(
        R"({{"data":[{{"attributes":{{{},
        "versionHistory":[{{"versionDisplay":"1.0","releaseDate":"2024-03-01"}}]}},
        "relationships":{{"reviews":[],"top-in-apps":{{"data":7}},
        "related-editorial-items":null}}}}]}})",
        bad);
    EXPECT_EQ(decodeEnrichment(body, Platform::mac), expected) << bad;
  }
}

TEST(Enrichment, KeepsWhatABadValueLeavesOfItsBlock) {
  const std::string body = R"({"data":[{"id":"1","attributes":{
    "userRating":{"value":4.5,"ratingCount":{},"ratingCountList":[1,2,3,4,5,6]},
    "chartPositions":{"appStore":{"position":3,"chartLink":"javascript:x"}},
    "versionHistory":[7,{"versionDisplay":"3.0"},{"versionDisplay":"2.9","releaseDate":"soon"},
      {"versionDisplay":2.8,"releaseDate":"2024-01-02","releaseNotes":{}}]},
    "relationships":{"reviews":{"data":[{"id":"1"},
      {"attributes":{"rating":9,"date":"?","developerResponse":"Hi"}}]}}}]})";
  const AppEnrichment expected{.versions = {{"", at("2024-01-02T00:00:00Z"), {}}},
                               .reviews = std::vector<AppReview>(1),
                               .rating = AppRating{4.5, {}, {}},
                               .chartPosition = ChartPosition{"", "", 3, {}}};
  EXPECT_EQ(decodeEnrichment(body, Platform::mac), expected);
}

}  // namespace
}  // namespace quillet
