// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/local_command_test.h"

namespace quillet {
namespace {

using PurchaseHistoryTest = LocalCommandTest;

TEST_F(PurchaseHistoryTest, printsEverySeriesAsJson) {
  makeLibrary(R"(
    INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME, ZCOUNTRY) VALUES (11, 'Amber Notes', 'us');
    INSERT INTO ZPURCHASEPRICEPOINT
      (ZTRACKID, ZCOUNTRY, ZKEY, ZNAME, ZRECURRINGPERIOD, ZPRICE, ZCURRENCY, ZDATE) VALUES
      (11, 'us', 'amber.pro', 'Pro Plan', 'P1M', 4.99, 'USD', 259200),
      (11, 'us', 'amber.pro', 'Pro', 'P1M', 4.99, 'USD', 0),
      (11, 'us', 'amber.pro', NULL, 'P1M', 2.99, NULL, 86400.5),
      (11, 'us', 'Unlock|', 'Unlock', NULL, 9.99, 'USD', 5),
      (11, 'us', 'free.once', 'Was free', '', 0, 'USD', 6),
      (11, 'us', 'free.once', 'Was free', '', 1, 'USD', 9e999),
      (11, 'us', 'amber.pro', 'No price', 'P1M', NULL, 'USD', 9),
      (12, 'us', 'x', 'Another app', NULL, 1, 'USD', 9);)");
  EXPECT_EQ(json("purchase-history 11"),
            flattened(R"({"name": "Amber Notes","storefronts": [{"country": "us","purchases": [{
      "changePercent": 66.88963210702342,"changes": 2,"currency": "USD","history": [{
      "date": "2001-01-01T00:00:00Z","price": 4.99},{"date": "2001-01-02T00:00:00Z","price": 2.99
      },{"date": "2001-01-04T00:00:00Z","price": 4.99}],"name": "Pro Plan","period": "P1M",
      "periodDays": 30,"previousPrice": 2.99,"price": 4.99,"productId": "amber.pro",
      "since": "2001-01-04T00:00:00Z","subscription": true},{"changes": 0,"currency": "USD",
      "history": [{"date": "2001-01-01T00:00:05Z","price": 9.99}],"name": "Unlock","price": 9.99,
      "since": "2001-01-01T00:00:05Z","subscription": false},{"changes": 1,"currency": "USD",
      "history": [{"date": "2001-01-01T00:00:06Z","price": 0},{"price": 1}],"name": "Was free",
      "previousPrice": 0,"price": 1,"productId": "free.once","subscription": false}]}],
      "trackId": 11,"watched": true})"));
}

TEST_F(PurchaseHistoryTest, tellsStorefrontsApart) {
  makeLibrary(R"(INSERT INTO ZPURCHASEPRICEPOINT
      (ZTRACKID, ZCOUNTRY, ZKEY, ZNAME, ZPRICE, ZCURRENCY, ZDATE) VALUES
      (11, 'us', 'pro', 'Pro', 5, 'USD', 0), (11, 'jp', 'pro', 'Pro JP', 800, 'JPY', 1),
      (11, 'us', 'pro', 'Pro', 4.5, 'USD', 2),
      (11, 'us', 'long', 'A name of exactly thirty-five signs', 12345.5, 'USD', 3),
      (11, 'us', 'free', 'Was free', 0, 'USD', 6), (11, 'us', 'free', 'Was free', 1, 'USD', 7);)");
  EXPECT_EQ(run("purchase-history 11"), R"(Pro, in-app purchase prices
No longer on the watchlist, so these stopped updating.
Storefront us
Pro                                $4.50      was $5.00 (-10.0%)
A name of exactly thirty-five sig… $12,345.50 unchanged since 2001-01-01
Was free                           $1.00      was $0.00
Storefront jp
Pro JP                             ¥800       unchanged since 2001-01-01)");
  LibraryWriter(database).run(
      "INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME, ZCOUNTRY) VALUES (11, 'Amber', 'us'),"
      " (11, 'Bernstein', 'de')");
  EXPECT_TRUE(run("purchase-history 11 -c us").starts_with("Amber, in-app purchase prices\nPro  "));
  EXPECT_TRUE(run("purchase-history 11 -c jp")
                  .starts_with("Bernstein, in-app purchase prices\nNo longer on the watchlist,"));
}

TEST_F(PurchaseHistoryTest, comparesNothingAcrossCurrencies) {
  makeLibrary(R"(INSERT INTO ZPURCHASEPRICEPOINT
      (ZTRACKID, ZCOUNTRY, ZKEY, ZNAME, ZPRICE, ZCURRENCY, ZDATE) VALUES
      (11, 'bg', 'pro', 'Pro', 50, 'BGN', 0), (11, 'bg', 'pro', 'Pro', 6.99, 'EUR', 86400),
      (11, 'bg', 'tip', 'Tip', 4, 'BGN', 0), (11, 'bg', 'tip', 'Tip', 2, 'EUR', 86400),
      (11, 'bg', 'tip', 'Tip', 1, NULL, 172800);)");
  EXPECT_TRUE(run("purchase-history 11").ends_with(R"(
Pro                                €6.99      unchanged since 2001-01-02
Tip                                €1.00      was €2.00 (-50.0%))"));
  const std::string document = json("purchase-history 11");
  const std::string history = R"("history": [{"date": "2001-01-02T00:00:00Z","price": 6.99}])";
  EXPECT_NE(document.find(history), std::string::npos) << document;
}

TEST_F(PurchaseHistoryTest, saysWhyThereIsNothing) {
  makeLibrary();
  EXPECT_TRUE(
      run("purchase-history 11 -c de")
          .starts_with("quillet: 11 isn't on the watchlist in the de storefront. Quillet "));
  EXPECT_EQ(run("purchase-history 77"),
            "quillet: 77 isn't on the watchlist. Quillet records in-app purchase prices only for "
            "watched apps, from their first price check after being added.\n"
            "  try: Add it to the watchlist in Quillet.\n"
            "  try: quillet info 77 --json lists today's in-app purchases.\n");
  EXPECT_EQ(status, ExitStatus::nothingFound);
}

}  // namespace
}  // namespace quillet
