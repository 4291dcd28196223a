// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/app_build.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Texts = std::vector<std::string>;

TEST(AppBuild, ReadsARecordsOwnPlatformFromItsKindAndPictures) {
  const Texts some{"https://pic.example/1.png"};
  struct Row {
    ITunesApp app;
    Platform expected;
  };
  const Row rows[] = {
      {{.kind = "mac-software", .ipadScreenshotUrls = some}, Platform::mac},
      {{.kind = "software"}, Platform::iphone},
      {{.screenshotUrls = some, .ipadScreenshotUrls = some}, Platform::iphone},
      {{.screenshotUrls = Texts{}, .ipadScreenshotUrls = some}, Platform::ipad},
  };
  for (const Row& row : rows) EXPECT_EQ(ownPlatform(row.app), row.expected);
  EXPECT_TRUE(describesBuild({.kind = "software"}, Platform::ipad));
  EXPECT_FALSE(describesBuild({.kind = "software"}, Platform::mac));
}

TEST(AppBuild, ADeviceFamilyGivesAwayTheOtherBuild) {
  AppEnrichment catalog;
  EXPECT_FALSE(knowsBuild(catalog, Platform::mac)) << "nothing is said of any build";
  catalog.versions = {{"1.0", {}, {}}};
  EXPECT_TRUE(knowsBuild(catalog, Platform::mac));
  catalog.platform.emplace().deviceFamilies = {"iphone", "ipad"};
  EXPECT_FALSE(knowsBuild(catalog, Platform::mac));
  EXPECT_TRUE(knowsBuild(catalog, Platform::iphone));
  catalog.platform->deviceFamilies = {"mac"};
  EXPECT_FALSE(knowsBuild(catalog, Platform::ipad));
}

}  // namespace
}  // namespace quillet
