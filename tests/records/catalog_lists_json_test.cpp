// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_lists_json.h"

#include <gtest/gtest.h>

#include "store/records/catalog_purchases_json.h"

namespace quillet {
namespace {

TEST(MacCompatibilityFlags, AreReadWhereTheyAreSaid) {
  const auto flags = decodeMacCompatibilityFlags(R"({"data":[
    {"id":"1","attributes":{"isIOSBinaryMacOSCompatible":true}},
    {"id":"2","attributes":{"isIOSBinaryMacOSCompatible":false}},
    {"id":3,"attributes":{"platformAttributes":{"ios":{"isIOSBinaryMacOSCompatible":true}}}},
    {"id":"4","attributes":{"isIOSBinaryMacOSCompatible":"yes"}}, {"id":"5"}, 6,
    {"id":"-8","attributes":{"isIOSBinaryMacOSCompatible":true}}]})");
  EXPECT_EQ(flags, (std::map<std::int64_t, bool>{{1, true}, {2, false}, {3, true}}));
}

TEST(PlatformFacts, AreThoseOfTheMacBuild) {
  const PlatformFacts translated{PlatformInfo{.requiresRosetta = true}, AppRating{4.0, 12, {}}};
  const PlatformFacts direct{PlatformInfo{.runsOnAppleSilicon = true}, {}};
  const auto facts = decodePlatformFacts(R"({"data":[
    {"id":"1","attributes":{"userRating":{"value":4,"ratingCount":12},
      "platformAttributes":{"osx":{"requiresRosetta":true}}}},
    {"id":"2","attributes":{"runsOnAppleSilicon":true}},
    {"id":"3","attributes":{"platformAttributes":{"ios":{"requiresRosetta":true}}}},
    {"id":"x","attributes":{"runsOnIntel":true}}]})");
  EXPECT_EQ(facts, (std::map<std::int64_t, PlatformFacts>{{1, translated}, {2, direct}, {3, {}}}));
}

TEST(Purchases, AreReadByApp) {
  const InAppPurchase monthly{.productId = "21",
                              .name = "Monthly",
                              .description = "All tools.",
                              .isSubscription = true,
                              .isFamilyShareable = true,
                              .offerName = "com.example.monthly",
                              .price = 4.99,
                              .priceFormatted = "$4.99",
                              .currency = "USD"};
  const InAppPurchase yearly{.productId = "22",
                             .description = "Flat.",
                             .isSubscription = true,
                             .price = 9.5,
                             .recurringSubscriptionPeriod = "P1Y"};
  const InAppPurchase bare{.productId = "23"};
  const auto purchases = decodePurchases(R"({"data":[
    {"id":"1","views":{"top-in-app-purchasables":{"data":[
      {"id":"21","attributes":{"name":"Monthly","description":{"standard":"All tools."},
        "isSubscription":true,"isFamilyShareable":true,"offerName":"com.example.monthly",
        "offers":[{"price":4.99,"priceFormatted":"$4.99","currencyCode":"USD"}]}},
      {"id":22,"attributes":{"description":"Flat.","offers":[
        {"type":"trial"},{"price":"9.5","recurringSubscriptionPeriod":"P1Y"}]}},
      {"id":"23","attributes":{"name":7,"offers":"none","isSubscription":"no"}},
      {"attributes":{"name":"no ID"}}, "x"]}}},
    {"id":"2","views":{"top-in-app-purchasables":{"data":[]}}},
    {"id":"3","relationships":{"top-in-app-purchasables":{"data":[{"id":"23"}]}}}, {"id":"?"}]})");
  EXPECT_EQ(purchases, (std::map<std::int64_t, std::vector<InAppPurchase>>{
                           {1, {monthly, yearly, bare}}, {2, {}}, {3, {bare}}}));
}

}  // namespace
}  // namespace quillet
