// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare_command.h"

#include "support/command_line_test.h"

namespace quillet {
namespace {

constexpr std::string_view kMac = R"({"trackId":11,"trackName":"Amber Notes","kind":"mac-software",
  "sellerName":"Noor Amberfield","price":4.99,"formattedPrice":"$4.99","currency":"USD",
  "averageUserRating":0,"userRatingCount":0})";
constexpr std::string_view kPhone = R"({"trackId":12,"trackName":"Birch","kind":"software",
  "price":0,"formattedPrice":"Free","currency":"USD","averageUserRating":4,"userRatingCount":1})";
constexpr std::string_view kMacSold = R"({"data":[{"id":"11","views":{"top-in-app-purchasables":
  {"data":[
    {"id":"1","attributes":{"name":"Amber Monthly","isSubscription":true,"offers":[{"price":4.99,
      "priceFormatted":"$4.99","currencyCode":"USD","recurringSubscriptionPeriod":"P1M"}]}},
    {"id":"2","attributes":{"name":"Amber Yearly, with every brush that was ever made",
      "isSubscription":true,"offers":[{"price":39.5,"currencyCode":"USD",
      "recurringSubscriptionPeriod":"P1Y"}]}},
    {"id":"3","attributes":{"name":"Lifetime","offers":[{"price":99,"priceFormatted":"$99.00",
      "currencyCode":"USD"}]}}]}}}]})";
constexpr std::string_view kNothingSold =
    R"({"data":[{"id":"12","views":{"top-in-app-purchasables":{"data":[]}}}]})";
constexpr std::string_view kMacRating = R"({"data":[{"id":"11","attributes":{
  "userRating":{"value":4.5,"ratingCount":1200},"platformAttributes":{"osx":{"runsOnIntel":true}}}}]})";

constexpr std::string_view kSoldInEuros = R"({"data":[{"id":"11","views":{
  "top-in-app-purchasables":{"data":[{"id":"1","attributes":{"name":"Amber Monthly",
    "isSubscription":true,"offers":[{"price":4.99,"currencyCode":"EUR",
    "recurringSubscriptionPeriod":"P1M"}]}}]}}}]})";

const std::string kApps = "https://web.example/api/apps/v1/catalog/us/apps";
const std::string kRatings = kApps + "?ids=11&platform=mac&l=en-US";

class CompareCommandTest : public CommandLineTest {
 protected:
  static std::string sold(int id, std::string_view platform) {
    return fmt::format("{}?ids={}&platform={}&views=top-in-app-purchasables&l=en-US", kApps, id,
                       platform);
  }
  /// The Mac app 11 and the iPhone app 12, but no 13.
  void answerBoth(std::string_view ids = "11,12,13") {
    http.answer(lookup(ids), 200, answer({kPhone, kMac}));
    http.answer(sold(11, "mac"), 200, std::string(kMacSold));
    http.answer(sold(12, "ipad"), 200, std::string(kNothingSold));
    http.answer(kRatings, 200, std::string(kMacRating));
  }
};

TEST_F(CompareCommandTest, ShowsAppsAsJsonInTheOrderAsked) {
  answerBoth();
  EXPECT_EQ(json({"compare", "11", "12", "13", "12"}), flattened(R"({
    "country": "us",
    "entries": [
      {"app": {"currency": "USD","formattedPrice": "$4.99","free": false,
        "hasInAppPurchases": true,"hasSubscription": true,"kind": "mac-software",
        "name": "Amber Notes","price": 4.99,"rating": 4.5,
        "ratingCount": 1200,"seller": "Noor Amberfield","trackId": 11},
      "purchases": [
        {"currency": "USD","formattedPrice": "$4.99","name": "Amber Monthly",
        "period": "per month","price": 4.99,"pricePerYear": 59.875082128777926,
        "subscription": true},
        {"currency": "USD","formattedPrice": "$39.50",
        "name": "Amber Yearly, with every brush that was ever made",
        "period": "per year","price": 39.5,"pricePerYear": 39.5,"subscription": true},
        {"currency": "USD","formattedPrice": "$99.00","name": "Lifetime","price": 99,
        "subscription": false}],
      "purchasesChecked": true},
      {"app": {"currency": "USD","formattedPrice": "Free","free": true,
        "hasInAppPurchases": false,"hasSubscription": false,"kind": "software","name": "Birch",
        "price": 0,"rating": 4,"ratingCount": 1,"trackId": 12},
      "purchases": [],
      "purchasesChecked": true}],
    "missing": [13]})"));
  EXPECT_EQ(http.requests().size(), 4U);
}

TEST_F(CompareCommandTest, StandsAppsBesideEachOtherWhereTheyFit) {
  answerBoth();
  io.style.width = 80;
  EXPECT_EQ(printed({"compare", "11", "12", "13"}), R"(Comparing 2 apps in the us storefront.

              Amber Notes                       Birch
Price         $4.99                             Free
Rating        ★★★★½ 4.5 (1,200 ratings)         ★★★★ 4.0 (1 rating)
Purchases     Amber Monthly                     none
                Subscription $59.88/year
              Amber Yearly, with every brush
              that was ever made
                Subscription $39.50/year
              Lifetime
                One-time $99.00
First year    $44.49                            Free

Not found in this storefront: 13
)");
}

TEST_F(CompareCommandTest, PutsAppsBelowEachOtherWhereTheyDoNot) {
  answerBoth("12,11,13");
  io.style = {.colour = false, .utf8 = false, .width = 60};
  EXPECT_EQ(printed({"compare", "12", "11", "13"}), R"(Comparing 2 apps in the us storefront.

Birch
Price         Free
Rating        4.0 (1 rating)
Purchases     none
First year    Free

Amber Notes  Noor Amberfield
Price         $4.99
Rating        4.5 (1,200 ratings)
Purchases     Amber Monthly
                Subscription $59.88/year
              Amber Yearly, with every brush that was ever
              made
                Subscription $39.50/year
              Lifetime
                One-time $99.00
First year    $44.49

Not found in this storefront: 13
)");
}

TEST_F(CompareCommandTest, SaysWhyAFirstYearIsUnknown) {
  const std::tuple<int, std::string, std::string> rows[] = {
      {429, "", "unknown — Apple rate limited the purchase lookup"},
      {403, "", "unknown — the purchase lookup failed"},
      {200, R"({"data":[]})", "unknown — the purchase lookup failed"},
      {200, std::string(kSoldInEuros), "Amber Monthly\n                Subscription €59.88/year"},
  };
  for (const auto& [status, body, said] : rows) {
    http.answer(lookup("12,11"), 200, answer({kPhone, kMac}));
    http.answer(sold(12, "ipad"), 200, std::string(kNothingSold));
    for (int i = 0; i < (status == 429 ? 3 : 1); ++i) {
      http.answer(sold(11, "mac"), status, body);
    }
    http.answer(kRatings, 500, "");
    EXPECT_TRUE(printed({"compare", "12", "11"})
                    .ends_with("Amber Notes  Noor Amberfield\nPrice         $4.99\n"
                               "Rating        —\nPurchases     " +
                               said + "\nFirst year    unknown\n"))
        << io.out.content;
    EXPECT_EQ(io.err.content, "");
  }
}

TEST_F(CompareCommandTest, FailsWhereNoneIsThereOrTheLookupFails) {
  http.answer(lookup("1,2"), 200, answer({}));
  EXPECT_EQ(said({"compare", "1", "2"}, 1),
            "quillet: None of those IDs exist in the us storefront.\n");
  http.answer(lookup("1,2"), 429, "");
  printed({"compare", "1", "2", "--no-retry"}, 4);
}

}  // namespace
}  // namespace quillet
