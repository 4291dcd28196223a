// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/described_app.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

Instant day(int number) { return Instant() + std::chrono::days(number); }

constexpr const char* kMac = "mac-software";
constexpr const char* kMobile = "software";

TEST(DescribedApp, OneRatingCounts) {
  struct Row {
    const char* kind;
    std::optional<double> mean;
    std::optional<std::int64_t> count;
    std::optional<AppRating> catalog;
    std::optional<double> expectedMean;
    std::optional<std::int64_t> expectedCount;
  };
  const AppRating four{4, 9, {0, 0, 0, 9, 0}};
  const Row rows[] = {
      {kMac, 0, 0, {}, {}, {}},  // the search service knows no ratings of Mac apps
      {kMac, 0, 0, four, 4, 9},    {kMac, 0, 0, AppRating{0, 0, {}}, {}, 0},  // nobody rated it
      {kMac, 3, 5, four, 3, 5},    {kMac, {}, {}, four, 4, 9},
      {kMobile, 0, 0, {}, {}, 0},  {kMobile, 0, 0, four, {}, 0},
      {kMobile, 3, 5, four, 3, 5}, {kMobile, 3, {}, four, 4, 9},
      {kMobile, 3, {}, {}, 3, {}},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(i);
    const Row& row = rows[i];
    ITunesApp app{.kind = row.kind, .averageUserRating = row.mean, .userRatingCount = row.count};
    const Platform platform = row.kind == kMac ? Platform::mac : Platform::iphone;
    const DescribedApp described = describeApp(app, platform, AppEnrichment{.rating = row.catalog});
    EXPECT_EQ(described.record.averageUserRating, row.expectedMean);
    EXPECT_EQ(described.record.userRatingCount, row.expectedCount);
    EXPECT_EQ(described.record.ratingHistogram.has_value(), row.catalog == four);
  }
}

TEST(DescribedApp, WhatNamesNoPriceIsFree) {
  struct Row {
    std::optional<double> price;
    std::optional<std::string> text;
    std::optional<bool> free;
  };
  const Row rows[] = {
      {0, "Gratis", true}, {4.99, {}, false}, {{}, {}, true}, {{}, "", true}, {{}, "$4.99", {}}};
  for (const Row& row : rows) {
    ITunesApp app{.price = row.price, .formattedPrice = row.text, .hasInAppPurchases = false};
    const DescribedApp described = describeApp(app);
    EXPECT_EQ(described.free, row.free);
    EXPECT_EQ(described.monetization == MonetizationModel::unknown, !row.free);
  }
}

/// A record of which all that belongs to a build is told.
ITunesApp recordOf(const char* kind) {
  return {.trackName = "Amber",
          .kind = kind,
          .averageUserRating = 3,
          .userRatingCount = 5,
          .version = "1.0",
          .releaseDate = day(1),
          .currentVersionReleaseDate = day(2),
          .releaseNotes = "First.",
          .minimumOsVersion = "16.0",
          .fileSizeBytes = "1"};
}

AppEnrichment catalogOf(const char* family) {
  AppEnrichment catalog;
  catalog.versions = {{"2.1", day(5), "Faster."}, {"2.0", day(4), {}}};
  catalog.rating = {4.6, 1200, {}};
  catalog.tagline = "By the water";
  catalog.chartPosition.emplace().position = 12;
  catalog.platform = PlatformInfo{.requirements = "Requires a keyboard.",
                                  .deviceFamilies = {family},
                                  .requiresRosetta = false,
                                  .minimumMacOSVersion = "13.0"};
  return catalog;
}

TEST(DescribedApp, ARecordOfTheOtherBuildTellsNothingOfThisOne) {
  DescribedApp described = describeApp(recordOf(kMobile), Platform::mac, catalogOf("mac"));
  const ITunesApp& app = described.record;
  EXPECT_EQ(app.version, "2.1");
  EXPECT_EQ(app.releaseNotes, "Faster.");
  EXPECT_EQ(app.currentVersionReleaseDate, day(5));
  EXPECT_EQ(app.releaseDate, std::nullopt);
  EXPECT_EQ(app.fileSizeBytes, std::nullopt);
  EXPECT_EQ(app.minimumOsVersion, "13.0");
  EXPECT_EQ(app.needsRosetta, false);
  EXPECT_EQ(app.averageUserRating, 4.6);
  EXPECT_EQ(described.chartPosition.value().position, 12);

  // Nor does the catalog, where it answers with the other build as well.
  described = describeApp(recordOf(kMobile), Platform::mac, catalogOf("iphone"));
  EXPECT_EQ(app.version, std::nullopt);
  EXPECT_EQ(app.userRatingCount, std::nullopt);
  EXPECT_EQ(app.minimumOsVersion, std::nullopt);
  EXPECT_EQ(described.build.requirements, std::nullopt);
  EXPECT_EQ(described.chartPosition, std::nullopt);
  EXPECT_EQ(app.tagline, "By the water");
  EXPECT_EQ(app.deviceFamilies, std::vector<std::string>{"iphone"});

  described = describeApp(recordOf(kMac), Platform::mac, catalogOf("mac"));
  EXPECT_EQ(app.version, "1.0");
  EXPECT_EQ(app.minimumOsVersion, "16.0");
  EXPECT_EQ(app.userRatingCount, 5);
}

TEST(DescribedApp, AnAppThatTheCatalogLacksIsNotOneThatSellsNothing) {
  const auto sold = [](std::optional<AppEnrichment> catalog) {
    return describeApp(recordOf(kMac), Platform::mac, std::move(catalog));
  };
  EXPECT_FALSE(sold(std::nullopt).isCatalogRead);
  const DescribedApp missing = sold(AppEnrichment{});
  EXPECT_TRUE(missing.isCatalogRead);
  EXPECT_EQ(missing.purchases, std::nullopt);
  EXPECT_EQ(missing.versions, std::nullopt);
  EXPECT_EQ(missing.record.hasInAppPurchases, std::nullopt);
  const DescribedApp known = sold(catalogOf("mac"));
  EXPECT_EQ(known.purchases, std::vector<InAppPurchase>());
  EXPECT_EQ(known.record.hasInAppPurchases, false);

  // A flag that was read before is kept where nobody was asked again.
  ITunesApp record = recordOf(kMac);
  record.needsRosetta = record.hasSubscription = true;
  EXPECT_EQ(describeApp(record).record.needsRosetta, true);
  EXPECT_EQ(describeApp(record).record.hasSubscription, true);
}

}  // namespace
}  // namespace quillet
