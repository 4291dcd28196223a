// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_comparison.h"

#include "base/errors.h"
#include "query_test.h"
#include "store/records/itunes_error.h"
#include "support/message_of.h"

namespace quillet {
namespace {

constexpr std::string_view kMac = R"({"trackId":11,"trackName":"Amber","kind":"mac-software",
  "averageUserRating":0,"userRatingCount":0})";
constexpr std::string_view kPhone = R"({"trackId":12,"trackName":"Birch","kind":"software",
  "averageUserRating":4,"userRatingCount":1})";

class AppComparisonTest : public QueryTest {
 protected:
  static std::string facts(int id, std::string_view options = "mac") {
    return fmt::format("https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform={}&l=en-US",
                       id, options);
  }
  static std::string sold(int id, std::string_view platform) {
    return facts(id, fmt::format("{}&views=top-in-app-purchasables", platform));
  }
  static std::string selling(int id) {
    return fmt::format(R"({{"data":[{{"id":"{}","views":{{"top-in-app-purchasables":{{"data":[
        {{"id":"1","attributes":{{"name":"Plus","isSubscription":true}}}}]}}}}}}]}})",
                       id);
  }
  AppComparison read(std::vector<std::int64_t> ids) {
    return runVirtual(clock, readAppComparison(std::move(ids), "us", services(), call()));
  }
};

TEST_F(AppComparisonTest, JoinsRecordsPurchasesAndRatingsInTheOrderAskedFor) {
  http.answer(lookup("11,13,12"), 200, answer({kPhone, kMac}));
  http.answer(sold(11, "mac"), 200, selling(11));
  http.answer(sold(12, "ipad"), 200, R"({"data":[]})");
  http.answer(
      facts(11), 200,
      R"({"data":[{"id":"11","attributes":{"userRating":{"value":4.5,"ratingCount":9}}}]})");
  const AppComparison comparison = read({11, 13, 12});
  ASSERT_EQ(comparison.apps.size(), 2U);
  EXPECT_EQ(comparison.missing, std::vector<std::int64_t>{13});
  EXPECT_EQ(comparison.catalogFailure, nullptr);
  EXPECT_EQ(progress.back(), "2/2");
  const ComparedApp& mac = comparison.apps[0];
  EXPECT_EQ(mac.app.averageUserRating, 4.5);
  EXPECT_EQ(mac.app.hasSubscription, true);
  EXPECT_EQ(mac.sold.purchases.at(0).name, "Plus");
  EXPECT_EQ(comparison.apps[1].sold.check, PurchaseCheck::failed) << "the catalog lacks it";
}

TEST_F(AppComparisonTest, KeepsARateLimitBeforeOtherFailures) {
  http.answer(lookup("11,12"), 200, answer({kMac, kPhone}));
  for (int i = 0; i < 3; ++i) http.answer(sold(11, "mac"), 429, "");
  http.answer(sold(12, "ipad"), 200, selling(12));
  http.answer(facts(11), 403, "");
  const AppComparison comparison = read({11, 12});
  EXPECT_EQ(comparison.apps[0].sold.check, PurchaseCheck::rateLimited);
  EXPECT_EQ(comparison.apps[1].sold.check, PurchaseCheck::done);
  ASSERT_NE(comparison.catalogFailure, nullptr);
  EXPECT_NE(messageOf<ITunesError>([&] {
              std::rethrow_exception(comparison.catalogFailure);
            }).find("429"),
            std::string::npos)
      << "which matters more than that the ratings failed before";
}

TEST_F(AppComparisonTest, EndsWhereItIsStoppedInTheCatalog) {
  http.answer(lookup("12"), 200, answer({kPhone}));
  http.hold(sold(12, "ipad"));
  auto task = readAppComparison({12}, "us", services(), call());
  clock.advance(std::chrono::seconds(1));
  stop.requestStop();
  EXPECT_THROW(runVirtual(clock, std::move(task)), NetworkError);
}

TEST_F(AppComparisonTest, AsksTheCatalogNothingWhereNoneIsThere) {
  http.answer(lookup("11"), 200, answer({}));
  EXPECT_TRUE(read({11}).apps.empty());
  stop.requestStop();
  EXPECT_THROW(read({11}), NetworkError);
}

}  // namespace
}  // namespace quillet
