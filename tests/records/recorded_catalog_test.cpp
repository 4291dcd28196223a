// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Decodes answers of the catalog that were recorded elsewhere and are no part of this project: the
// folder is named by QUILLET_RECORDED_ANSWERS.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "store/records/catalog_enrichment_json.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

TEST(RecordedCatalog, ListOfTwoAppsDecodes) {
  const char* folder = std::getenv("QUILLET_RECORDED_ANSWERS");
  if (folder == nullptr) GTEST_SKIP() << "QUILLET_RECORDED_ANSWERS names no folder";
  const std::string body =
      contentOf(fs::path(folder) / "catalog" /
                "apps-ids-623592465-363556704-platform-iphone-apple-published.json");

  AppEnrichment expected;
  expected.rating = AppRating{4.9, 1987, {}};
  PlatformInfo& info = expected.platform.emplace();
  info.deviceFamilies = {"iphone", "ipad", "ipod"};
  info.minimumMacOSVersion = "11.0";
  info.isXROSCompatible = false;
  EXPECT_EQ(decodeEnrichment(body, Platform::iphone), expected);

  EXPECT_EQ(decodeMacCompatibilityFlags(body),
            (std::map<std::int64_t, bool>{{623592465, false}, {363556704, false}}));
  const auto facts = decodePlatformFacts(body);
  ASSERT_EQ(facts.size(), 2U);
  EXPECT_EQ(facts.at(363556704).rating, (AppRating{0, 0, {}}));
  EXPECT_EQ(facts.at(363556704).platform->minimumMacOSVersion, std::nullopt);
  EXPECT_EQ(decodePurchases(body).at(623592465), std::vector<InAppPurchase>{});
}

}  // namespace
}  // namespace quillet
