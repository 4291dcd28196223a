// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "sample_answers.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"

namespace quillet::sandbox {
namespace {

const std::string kCatalog = "/api/apps/v1/catalog/";

TEST(Catalog, batchesHoldWhatWasAskedFor) {
  const std::string query =
      "/apps?ids=1480068668,12,1289583905,1402277841,824183456&platform=mac"
      "&views=top-in-app-purchasables";
  const std::string body = asBrowser(kCatalog + "us" + query).body;
  const auto purchases = decodePurchases(body);
  ASSERT_EQ(purchases.size(), 3U);  // one is unknown, one is sold elsewhere
  for (const auto& [id, sold] : purchases) EXPECT_EQ(sold.size(), sampleApp(id).purchases.size());
  for (const auto& [id, fact] : decodePlatformFacts(body))
    EXPECT_EQ(fact.rating.value().count, sampleApp(id).ratings.count());
  for (const auto& [id, flag] : decodeMacCompatibilityFlags(body))
    EXPECT_EQ(flag, sampleApp(id).iosBuildRunsOnMac) << id;
  const auto inYen = decodePurchases(asBrowser(kCatalog + "jp" + query).body);
  EXPECT_EQ(inYen.at(1480068668).front().priceFormatted, "¥800");
}

std::string idList(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += fmt::format("{},", 6'400'000'000 + std::int64_t{i} * 617);
  return text;
}

TEST(Catalog, refusesWhatItDoesNotTake) {
  const std::tuple<const char*, std::string, int> cases[] = {
      {"fifty", "us/apps?platform=mac&ids=" + idList(50), 200},
      {"fifty-one", "us/apps?platform=mac&ids=" + idList(51), 400},
      {"none", "us/apps?platform=mac", 400},
      {"no platform", "us/apps/1480068668", 400},
      {"unknown platform", "us/apps/1480068668?platform=watch", 400},
      {"unknown app", "us/apps/12?platform=mac", 404},
      {"not sold here", "us/apps/1402277841?platform=mac", 404},
      {"twenty-one reviews", "us/apps/1480068668/reviews?platform=mac&limit=21", 400},
      {"beyond the reviews", "us/apps/1480068668/reviews?platform=mac&offset=9999", 404},
      {"unknown storefront", "zz/apps/1480068668?platform=mac", 404},
  };
  for (const auto& [situation, target, status] : cases)
    EXPECT_EQ(asBrowser(kCatalog + target).status, status) << situation;
}

TEST(WebHost, refusesWhatItDoesNotKnow) {
  for (const char* path : {"/us/app/id12", "/us/app/id1402277841", "/us/watch/charts/36",
                           "/us/mac/charts/37", "/file/quillbase-prices/v1/changes-zz.json.gz"})
    EXPECT_EQ(asBrowser(path).status, 404) << path;
  for (const char* path : {"/us/app/id1480068668", "/us/mac/charts/36"}) {
    EXPECT_EQ(answered(path).status, 429);
    EXPECT_NE(asBrowser(path).body.find("serialized-server-data"), std::string::npos);
  }
}

}  // namespace
}  // namespace quillet::sandbox
