// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_enrichment_json.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

Instant at(std::string_view date) { return parseInternetDate(date).value(); }

AppReview lunaReview() {
  return {.title = "Calm",
          .body = "Does one thing.",
          .rating = 5,
          .userName = "luna_reads",
          .date = at("2026-02-03T09:15:00Z"),
          .isEdited = true,
          .developerResponse = "Thank you!",
          .developerResponseDate = at("2026-02-04T00:00:00Z")};
}

InAppPurchase monthlyPurchase() {
  return {.productId = "1700000001",
          .name = "Harbour Plus Monthly",
          .description = "All tools.",
          .isSubscription = true,
          .isFamilyShareable = true,
          .offerName = "com.example.harbour.plus.monthly",
          .price = 4.99,
          .priceFormatted = "$4.99",
          .currency = "USD",
          .recurringSubscriptionPeriod = "P1M"};
}

AppEnrichment fullEnrichment() {
  AppEnrichment expected;
  expected.versions = {{"2.1", at("2026-03-01T08:30:00Z"), "Faster."},
                       {"2.0", at("2025-11-20T00:00:00Z"), {}}};
  expected.reviews = {lunaReview()};
  expected.inAppPurchases = {monthlyPurchase()};
  expected.rating = AppRating{4.6, 1200, {10, 20, 70, 200, 900}};
  expected.editorialBadge = "Editors' Choice";
  expected.tagline = "Notes by the water";
  expected.editorialStoryIds = {"1650000001", "1650000002"};
  PlatformInfo& info = expected.platform.emplace();
  info.requirements = "Requires macOS 13.0 or later.";
  info.deviceFamilies = {"mac"};
  info.runsOnAppleSilicon = true;
  info.runsOnIntel = true;
  info.requiresRosetta = false;
  info.minimumMacOSVersion = "13.0";
  info.isGameCenterEnabled = false;
  info.supportsGameController = false;
  info.hasSafariExtension = true;
  info.isSiriSupported = true;
  info.isAppleWatchSupported = false;
  info.isXROSCompatible = false;
  expected.chartPosition =
      ChartPosition{"Top Paid", "Productivity", 12, "https://apps.example.com/us/charts/36"};
  return expected;
}

constexpr std::string_view kRelationships = R"("relationships": {
  "reviews": {"data": [{"id": "9", "type": "user-reviews", "attributes": {
    "title": "Calm", "review": "Does one thing.", "rating": 5, "userName": "luna_reads",
    "date": "2026-02-03T09:15:00Z", "isEdited": true,
    "developerResponse": {"body": "Thank you!", "modified": "2026-02-04T00:00:00Z"}}}], "next": "x"},
  "top-in-apps": {"data": [{"id": "1700000001", "type": "in-apps", "attributes": {
    "name": "Harbour Plus Monthly", "description": {"standard": "All tools."},
    "isSubscription": true, "isFamilyShareable": true,
    "offerName": "com.example.harbour.plus.monthly",
    "offers": [{"price": 4.99, "priceFormatted": "$4.99", "currencyCode": "USD",
                "recurringSubscriptionPeriod": "P1M"}]}}]},
  "related-editorial-items": {"data": [{"id": "1650000001"}, {"type": "x"}, {"id": 1650000002}]}})";

TEST(Enrichment, ReadsBothFormsOfAFullAnswer) {
  const std::string plain = fmt::format(R"({{"data": [{{"id": "1480068668", "type": "apps",
    "attributes": {{
      "nameForDisplay": "Harbour",
      "versionHistory": [
        {{"versionDisplay": "2.1", "releaseDate": "2026-03-01T08:30:00Z", "releaseNotes": "Faster."}},
        {{"versionDisplay": "2.0", "releaseDate": "2025-11-20T00:00:00Z"}}],
      "editorialBadgeInfo": {{"nameForDisplay": "Editors' Choice"}},
      "editorialNotes": {{"tagline": "Notes by the water", "short": "Unused"}},
      "requirementsString": "Requires macOS 13.0 or later.",
      "userRating": {{"value": 4.6, "ratingCount": 1200, "ratingCountList": [10, 20, 70, 200, 900]}},
      "chartPositions": {{"appStore": {{"chart": "Top Paid", "genreName": "Productivity",
        "position": 12, "chartLink": "https://apps.example.com/us/charts/36"}}}},
      "platformAttributes": {{"mac": {{
        "deviceFamilies": ["mac"], "runsOnAppleSilicon": true, "runsOnIntel": true,
        "requiresRosetta": false, "minimumMacOSVersion": "13.0", "isGameCenterEnabled": false,
        "supportsGameController": false, "hasSafariExtension": true, "isSiriSupported": true,
        "isAppleWatchSupported": false, "isXROSCompatible": false}},
        "ipad": {{"deviceFamilies": ["ipad"], "runsOnIntel": false}}}}}},
    {}}}]}})",
                                        kRelationships);
  EXPECT_EQ(decodeEnrichment(plain, Platform::mac), fullEnrichment());

  const std::string observed = fmt::format(R"({{"data": {{"id": "1480068668",
    "attributes": {{
      "deviceFamilies": ["mac"], "hasSafariExtension": true, "isSiriSupported": true,
      "isAppleWatchSupported": false, "isGameCenterEnabled": false, "editorialBadgeInfo": "Editors' Choice",
      "editorialNotes": {{"short": "Notes by the water"}},
      "userRating": {{"value": "4.6", "ratingCount": "1200", "ratingCountList": [10, 20, 70, 200, 900]}},
      "chartPositions": {{"appStore": {{"chart": "Top Paid", "genreName": "Productivity",
        "position": "12", "chartLink": "https://apps.example.com/us/charts/36"}}}},
      "platformAttributes": {{"osx": {{
        "versionHistory": [
          {{"versionDisplay": " 2.1", "releaseDate": "2026-03-01", "releaseNotes": "Faster.",
            "releaseTimestamp": "2026-03-01T00:30:00.000-08:00"}},
          {{"versionDisplay": "2.0", "releaseDate": "2025-11-20", "releaseTimestamp": 7}}],
        "requirementsString": "Requires macOS 13.0 or later.", "runsOnAppleSilicon": true,
        "runsOnIntel": true, "requiresRosetta": false, "minimumMacOSVersion": "13.0",
        "supportsGameController": false, "isVisionOSCompatible": false, "isXROSCompatible": true}}}}}},
    {}}}}})",
                                           kRelationships);
  EXPECT_EQ(decodeEnrichment(observed, Platform::mac), fullEnrichment());
}

TEST(Enrichment, ReadsTheBlocksOfTheAskedPlatform) {
  const std::string body = R"({"data":[{"id":"1","attributes":{"platformAttributes":{
    "osx":{"requiresRosetta":true},"ios":{"requirementsString":"Requires iOS 17."}}}}]})";
  EXPECT_EQ(decodeEnrichment(body, Platform::mac).platform->requiresRosetta, true);
  const auto iphone = decodeEnrichment(body, Platform::iphone).platform;
  EXPECT_EQ(iphone->requirements, "Requires iOS 17.");
  EXPECT_EQ(iphone->requiresRosetta, std::nullopt);
}

TEST(Enrichment, OneBadBlockCostsOnlyItself) {
  const VersionEntry version{"1.0", at("2024-03-01T00:00:00Z"), {}};
  const std::string kept =
      R"("versionHistory":[{"versionDisplay":"1.0","releaseDate":"2024-03-01"}])";
  for (const char* bad :
       {R"("unknown":1)", R"("userRating":null)",
        R"("userRating":{"value":"good","ratingCount":[],"ratingCountList":[1,2,3]})",
        R"("chartPositions":[])", R"("chartPositions":{"appStore":{"chart":"Top","position":"?"}})",
        R"("chartPositions":{"appStore":{"position":0}})", R"("editorialBadgeInfo":{"kind":"x"})",
        R"("editorialNotes":"text")", R"("platformAttributes":[1])",
        R"("platformAttributes":{"mac":{"runsOnIntel":"yes","deviceFamilies":7}})"}) {
    const std::string body = fmt::format(
        R"({{"data":[{{"id":"1","attributes":{{{},{}}},"relationships":{{"reviews":[],
        "top-in-apps":{{"data":7}},"related-editorial-items":null}}}}]}})",
        bad, kept);
    AppEnrichment expected;
    expected.versions = {version};
    EXPECT_EQ(decodeEnrichment(body, Platform::mac), expected) << bad;
  }
}

TEST(Enrichment, KeepsWhatABadValueLeavesOfItsBlock) {
  const AppEnrichment enrichment = decodeEnrichment(R"({"data":[{"id":"1","attributes":{
    "userRating":{"value":4.5,"ratingCount":{},"ratingCountList":[1,2,3,4,5,6]},
    "chartPositions":{"appStore":{"position":3,"chartLink":"javascript:x"}},
    "versionHistory":[7,{"versionDisplay":"3.0"},{"versionDisplay":"2.9","releaseDate":"soon"},
      {"versionDisplay":2.8,"releaseDate":"2024-01-02","releaseNotes":{}}]},
    "relationships":{"reviews":{"data":[{"id":"1"},
      {"attributes":{"rating":9,"date":"?","developerResponse":"Hi"}}]}}}]})",
                                                    Platform::mac);
  EXPECT_EQ(enrichment.rating, (AppRating{4.5, {}, {}}));
  EXPECT_EQ(enrichment.chartPosition, (ChartPosition{"", "", 3, {}}));
  EXPECT_EQ(enrichment.versions, (std::vector<VersionEntry>{{"", at("2024-01-02T00:00:00Z"), {}}}));
  EXPECT_EQ(enrichment.reviews, std::vector<AppReview>(1));
}

TEST(Enrichment, OfAnUnknownAppIsEmpty) {
  EXPECT_EQ(decodeEnrichment(R"({"data":[]})", Platform::mac), AppEnrichment{});
  EXPECT_EQ(decodeEnrichment(R"({"data":[{"id":"1"}]})", Platform::ipad), AppEnrichment{});
}

}  // namespace
}  // namespace quillet
