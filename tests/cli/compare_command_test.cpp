// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"

namespace quillet {
namespace {

constexpr std::string_view kMac = R"({"trackId":11,"trackName":"Amber Notes","kind":"mac-software",
  "sellerName":"Noor Amberfield","price":4.99,"formattedPrice":"4,99 $","currency":"USD",
  "averageUserRating":0,"userRatingCount":0})";
constexpr std::string_view kPhone = R"({"trackId":12,"trackName":"Birch","kind":"software",
  "price":0,"formattedPrice":"Free","currency":"USD","averageUserRating":4,"userRatingCount":1})";
constexpr std::string_view kRating =
    R"({"data":[{"id":"11","attributes":{"userRating":{"value":4.5,"ratingCount":1200}}}]})";

constexpr std::string_view kMonthly = R"({"id":"1","attributes":{"name":"Amber Monthly",
  "isSubscription":true,"offers":[{"price":4.99,"currencyCode":"USD",
  "recurringSubscriptionPeriod":"P1M"}]}})";
constexpr std::string_view kYearly = R"({"id":"1","attributes":{
  "name":"Amber Yearly, with every brush that was ever made","isSubscription":true,
  "offers":[{"price":39.5,"currencyCode":"USD","recurringSubscriptionPeriod":"P1Y"}]}})";
constexpr std::string_view kLifetime = R"({"id":"1","attributes":{"name":"Lifetime",
  "offers":[{"price":99,"priceFormatted":"$99.00"}]}})";
constexpr std::string_view kInEuros = R"({"id":"1","attributes":{"name":"Plus",
  "isSubscription":true,"offers":[{"price":1,"currencyCode":"EUR",
  "recurringSubscriptionPeriod":"P1Y"}]}})";

class CompareCommandTest : public CommandLineTest {
 protected:
  static std::string selling(int id, const std::vector<std::string_view>& items) {
    return fmt::format(R"({{"data":[{{"id":"{}","views":{{"top-in-app-purchasables":{{
                           "data":[{}]}}}}}}]}})",
                       id, fmt::join(items, ","));
  }
  /// The Mac app 11 and the iPhone app 12, but no 13.
  void answerBoth() {
    answerLookup("11,12,13", {kPhone, kMac});
    http.answer(sold({11}), 200, selling(11, {kMonthly, kYearly, kLifetime}));
    http.answer(sold({12}, "ipad"), 200, selling(12, {}));
    http.answer(facts({11}), 200, std::string(kRating));
  }
};

TEST_F(CompareCommandTest, ShowsEachAppOnceAsJson) {
  answerBoth();
  const std::string text = json("compare 11 12 13 12");
  EXPECT_TRUE(says("\"firstYearCost\": 44.49,"));
  EXPECT_TRUE(text.ends_with(flattened(R"("rating": 4,"ratingCount": 1,"trackId": 12},
      "firstYearCost": 0,"purchases": [],"purchasesChecked": true}],"missing": [13]})")))
      << text;
}

TEST_F(CompareCommandTest, StandsAppsBesideEachOtherWhereTheyFit) {
  answerBoth();
  io.style.width = 80;
  EXPECT_EQ(printed("compare 11 12 13"), R"(Comparing 2 apps in the us storefront.

              Amber Notes                       Birch
Price         $4.99                             Free
Rating        ★★★★½ 4.5 (1,200 ratings)         ★★★★ 4.0 (1 rating)
Purchases     Amber Monthly                     none
                Subscription $4.99 per month,
                $59.88/year
              Amber Yearly, with every brush
              that was ever made
                Subscription $39.50/year
              Lifetime
                One-time $99.00
First year    $44.49                            Free

Not found in this storefront: 13
)");
}

TEST_F(CompareCommandTest, PutsAppsBelowEachOtherAndSaysWhyAFirstYearIsUnknown) {
  const std::string unknown = "unknown — the purchase lookup failed";
  const std::string ratings = "Apple's server returned HTTP 500.";
  const std::tuple<int, std::string, std::string, std::string> rows[] = {
      {429, "", "unknown — Apple rate limited the purchase\n              lookup",
       "Apple is rate limiting this address (HTTP 429)."},
      {403, "", unknown, "Apple's server returned HTTP 403."},
      {200, "no JSON", unknown, "it is not JSON."},
      {200, R"({"data":[]})", unknown, ratings},
      {200, selling(11, {kInEuros}), "Plus\n                Subscription €1.00/year", ratings},
  };
  io.style.width = 60;
  for (const auto& [status, body, said, reason] : rows) {
    answerLookup("12,11", {kPhone, kMac});
    http.answer(sold({12}, "ipad"), 200, selling(12, {}));
    for (int i = 0; i < (status == 429 ? 3 : 1); ++i) http.answer(sold({11}), status, body);
    http.answer(facts({11}), 500, "");
    EXPECT_TRUE(printed("compare 12 11")
                    .ends_with("First year    Free\n\n"
                               "Amber Notes  Noor Amberfield\nPrice         $4.99\n"
                               "Rating        —\nPurchases     " +
                               said + "\nFirst year    unknown\n"))
        << io.out.content;
    EXPECT_EQ(io.err.content, "quillet: the catalog could not be read: " + reason + "\n");
  }
}

TEST_F(CompareCommandTest, StartsWithALineAnAppWhereThereAreThreeOrMore) {
  constexpr std::string_view kThird = R"({"trackId":14,"trackName":"Cedar Sketchbook, Unabridged",
    "kind":"software","price":1234.5,"formattedPrice":"$1,234.50","currency":"USD",
    "averageUserRating":4.2,"userRatingCount":31000})";
  const std::pair<std::size_t, std::string> rows[] = {
      {0, R"(
App                               Price  Rating              Cheapest year  First year
Amber Notes                       $4.99  ★★★★½ 4.5 (1,200)          $39.50      $44.49
Birch                              Free  ★★★★  4.0 (1)                   —        Free
Cedar Sketchbook, Unabridged  $1,234.50  ★★★★  4.2 (31,000)        unknown     unknown

Amber Notes  Noor Amberfield
Purchases     Amber Monthly
                Subscription $4.99 per month, $59.88/year
)"},
      {40, R"(
App          Price  Per year  First year
Amber …      $4.99    $39.50      $44.49
Birch         Free         —        Free
Cedar …  $1,234.50   unknown     unknown

Amber Notes  Noor Amberfield
Rating        ★★★★½ 4.5 (1,200 ratings)
Purchases     Amber Monthly
)"},
      {100, R"(
App                               Price  Rating              Cheapest year  First year
Amber Notes                       $4.99  ★★★★½ 4.5 (1,200)          $39.50      $44.49
Birch                              Free  ★★★★  4.0 (1)                   —        Free
Cedar Sketchbook, Unabridged  $1,234.50  ★★★★  4.2 (31,000)        unknown     unknown

              Amber Notes                  Birch                        Cedar Sketchbook, Unabridg…
Purchases     Amber Monthly                none                         unknown)"},
  };
  for (const auto& [width, start] : rows) {
    answerLookup("11,12,14", {kPhone, kMac, kThird});
    http.answer(sold({11}), 200, selling(11, {kMonthly, kYearly, kLifetime}));
    http.answer(sold({12, 14}, "ipad"), 200, selling(12, {}));
    http.answer(facts({11}), 200, std::string(kRating));
    io.style.width = width;
    EXPECT_TRUE(
        printed("compare 11 12 14").starts_with("Comparing 3 apps in the us storefront.\n" + start))
        << io.out.content;
  }
}

TEST_F(CompareCommandTest, FailsWhereNoneIsThere) {
  answerLookup("1,2", {});
  EXPECT_EQ(said("compare 1 2", 1), "quillet: None of those IDs exist in the us storefront.\n");
}

}  // namespace
}  // namespace quillet
