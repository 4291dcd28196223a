// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "sample_answers.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"

namespace quillet::sandbox {
namespace {

constexpr const char* kApps = "/api/apps/v1/catalog/us/apps";

void expectSamePurchases(const std::vector<InAppPurchase>& purchases, const SampleApp& app) {
  ASSERT_EQ(purchases.size(), app.purchases.size());
  for (std::size_t i = 0; i < purchases.size(); ++i) {
    const SamplePurchase& expected = app.purchases[i];
    EXPECT_EQ(purchases[i].name, expected.name);
    EXPECT_EQ(purchases[i].recurringSubscriptionPeriod.value_or(""), expected.period);
    EXPECT_NEAR(purchases[i].price.value_or(-1), expected.usCents / 100.0, 1e-9);
    EXPECT_EQ(purchases[i].currency, "USD");
  }
}

void expectSameMacBuild(const std::optional<PlatformInfo>& info, const SampleApp& app) {
  ASSERT_TRUE(info);
  EXPECT_EQ(info->minimumMacOSVersion, app.minimumMac);
  EXPECT_EQ(info->requiresRosetta, app.macBuild == MacBuild::intelOnly);
  EXPECT_EQ(info->runsOnIntel, app.macBuild != MacBuild::siliconOnly);
  EXPECT_EQ(info->runsOnAppleSilicon, true);
}

TEST(Catalog, batchesHoldWhatWasAskedFor) {
  const std::multimap<std::string, std::string> query{
      {"ids", "1480068668,12,1289583905,1402277841,824183456"},
      {"platform", "mac"},
      {"views", "top-in-app-purchasables"}};
  const std::string body = asBrowser(kApps, query).body;
  const auto purchases = decodePurchases(body);
  ASSERT_EQ(purchases.size(), 3U);  // one is unknown, one is sold elsewhere
  for (const auto& [id, sold] : purchases) expectSamePurchases(sold, sampleApp(id));
  const auto facts = decodePlatformFacts(body);
  for (const auto& [id, fact] : facts) {
    expectSameMacBuild(fact.platform, sampleApp(id));
    EXPECT_EQ(fact.rating.value().count, sampleApp(id).ratings.count());
  }
  for (const auto& [id, flag] : decodeMacCompatibilityFlags(body))
    EXPECT_EQ(flag, sampleApp(id).iosBuildRunsOnMac) << id;
  EXPECT_EQ(asBrowser(kApps, {{"ids", "1289583905"}, {"platform", "mac"}}).body.find("views"),
            std::string::npos);
  const auto inYen = decodePurchases(asBrowser("/api/apps/v1/catalog/jp/apps", query).body);
  EXPECT_EQ(inYen.at(1480068668).front().price, 800);
  EXPECT_EQ(inYen.at(1480068668).front().priceFormatted, "¥800");
}

std::string idList(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += fmt::format("{},", 6'400'000'000 + std::int64_t{i} * 617);
  return text;
}

TEST(Catalog, refusesWhatItDoesNotTake) {
  struct Case {
    const char* situation;
    std::string path;
    std::multimap<std::string, std::string> query;
    int status;
  };
  const std::string app = fmt::format("{}/1480068668", kApps);
  const Case cases[] = {
      {"fifty", kApps, {{"ids", idList(50)}, {"platform", "mac"}}, 200},
      {"fifty-one", kApps, {{"ids", idList(51)}, {"platform", "mac"}}, 400},
      {"none", kApps, {{"platform", "mac"}}, 400},
      {"no platform", app, {}, 400},
      {"unknown platform", app, {{"platform", "watch"}}, 400},
      {"unknown app", fmt::format("{}/12", kApps), {{"platform", "mac"}}, 404},
      {"not sold here", fmt::format("{}/1402277841", kApps), {{"platform", "mac"}}, 404},
      {"twenty-one reviews", app + "/reviews", {{"platform", "mac"}, {"limit", "21"}}, 400},
      {"beyond the reviews", app + "/reviews", {{"platform", "mac"}, {"offset", "9999"}}, 404},
      {"unknown storefront", "/api/apps/v1/catalog/zz/apps/1480068668", {{"platform", "mac"}}, 404},
  };
  for (const Case& c : cases) EXPECT_EQ(asBrowser(c.path, c.query).status, c.status) << c.situation;
  const Request asTool{.path = app, .query = {{"platform", "mac"}}, .userAgent = "curl/8.0"};
  EXPECT_EQ(answerTo(sampleStore(), asTool).status, 429);
}

TEST(WebHost, refusesWhatItDoesNotKnow) {
  for (const char* path : {"/us/app/id12", "/us/app/id1402277841", "/us/watch/charts/36",
                           "/us/mac/charts/37", "/file/quillbase-prices/v1/changes-zz.json.gz"})
    EXPECT_EQ(asBrowser(path).status, 404) << path;
  for (const char* path : {"/us/app/id1480068668", "/us/mac/charts/36"}) {
    const Answer answer = answerTo(sampleStore(), {.path = path, .userAgent = "Quillet/1.0"});
    EXPECT_EQ(answer.status, 429);
    EXPECT_EQ(answer.body.find("serialized-server-data"), std::string::npos);
    EXPECT_NE(asBrowser(path).body.find("serialized-server-data"), std::string::npos);
  }
}

}  // namespace
}  // namespace quillet::sandbox
