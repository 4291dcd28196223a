// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_series.h"

#include <gtest/gtest.h>

#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/recorded_history.h"

namespace quillet {
namespace {

using AppSeries = MemoryLibraryTest;

PricePoint price(std::int64_t trackId, std::string country, double amount,
                 std::optional<std::string> currency, int day) {
  return {.trackId = trackId,
          .country = std::move(country),
          .price = amount,
          .currency = std::move(currency),
          .date = dayAndSecond(day)};
}

TEST_F(AppSeries, AreByDateAndInTheLatestCurrencyAlone) {
  PricePoint imported = price(1, "bg", 4.99, "EUR", 10);
  imported.isBackfill = true;
  addPricePoints(transaction_, {price(1, "bg", 3.99, {}, 8), price(1, "bg", 19.99, "BGN", 2),
                                price(1, "bg", 1, "BGN", 3), price(1, "bg", 5.99, "EUR", 5),
                                price(1, "bg", 3.9905, "EUR", 9), imported,
                                price(1, "us", 2, "USD", 11), price(2, "us", 7, {}, 4)});
  const std::vector<AppKey> apps{{2, "us"}, {3, "us"}, {1, "bg"}};
  EXPECT_EQ(priceSeriesOf(database_, apps),
            (std::vector<AppPriceSeries>{{{2, "us"}, {{dayAndSecond(4), 7, {}}}},
                                         {{1, "bg"},
                                          {{dayAndSecond(5), 5.99, "EUR"},
                                           {dayAndSecond(8), 3.99, "EUR"},
                                           {dayAndSecond(9), 3.9905, "EUR"},
                                           {dayAndSecond(10), 4.99, "EUR", true}},
                                          {{"BGN", dayAndSecond(2), dayAndSecond(5)}}}}));
  EXPECT_EQ(storefrontsWithPrices(database_, 1), (std::vector<std::string>{"bg", "us"}));
  EXPECT_EQ(priceLowsOf(database_, apps),
            (std::vector<AppPriceLow>{{{2, "us"}, {7, dayAndSecond(4)}, 0, {}},
                                      {{1, "bg"}, {3.9905, dayAndSecond(9)}, 2, "EUR"}}));
}

TEST_F(AppSeries, CountPurchasesByAppAndStorefront) {
  const auto purchase = [](std::int64_t trackId, std::string country, std::string key,
                           double amount, std::string currency, int day) {
    return PurchasePricePoint{.trackId = trackId,
                              .country = std::move(country),
                              .key = std::move(key),
                              .price = amount,
                              .currency = std::move(currency),
                              .date = dayAndSecond(day)};
  };
  addPurchasePoints(transaction_,
                    {purchase(1, "us", "pro", 9, "USD", 2), purchase(1, "us", "tip", 1, "USD", 1),
                     purchase(1, "us", "pro", 5, "USD", 4), purchase(1, "us", "tip", 1, "USD", 3),
                     purchase(1, "us", "pro", 9, "USD", 5), purchase(1, "bg", "pro", 20, "BGN", 1),
                     purchase(1, "bg", "pro", 10, "EUR", 2), purchase(2, "us", "pro", 1, "USD", 1),
                     purchase(2, "us", "pro", 2, "USD", 2)});
  const std::vector<AppKey> apps{{1, "bg"}, {3, "us"}, {1, "us"}, {2, "us"}};
  EXPECT_EQ(purchaseCountsOf(database_, apps),
            (std::vector<AppPurchaseCounts>{
                {{1, "bg"}, {1, 0}}, {{3, "us"}, {}}, {{1, "us"}, {2, 1}}, {{2, "us"}, {1, 1}}}));
}

}  // namespace
}  // namespace quillet
