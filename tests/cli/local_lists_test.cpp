// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/local_command_test.h"

namespace quillet {
namespace {

using WatchlistTest = LocalCommandTest;

TEST_F(WatchlistTest, printsAllThatIsKnownAsJson) {
  makeLibrary(R"(INSERT INTO ZWATCHEDAPP VALUES
    (1, 11, 'us', 'mac', 'Amber Notes', 'Noor Amberfield', 'art', 'page', 'USD', 4.99, 1.99,
     '$1.99', '2.1', 800000000.75, 0, 7, 0, 1, 1, 0.99, 1.99, 0),
    (2, 12, 'de', 'ipad', 'Birch', NULL, NULL, NULL, NULL, NULL, 2, NULL, NULL, NULL, NULL, NULL,
     NULL, NULL, NULL, NULL, NULL, NULL);
    INSERT INTO ZPURCHASEPRICEPOINT
      (ZTRACKID, ZCOUNTRY, ZKEY, ZNAME, ZPRICE, ZDATE) VALUES
      (11, 'us', 'pro', 'Pro', 5, 1), (11, 'us', 'pro', 'Pro', 4, 3), (11, 'us', 'pro', 'Pro', 5, 2),
      (11, 'us', 'tip', 'Tip', 1, 1), (11, 'us', 'tip', 'Tip', 1, 2), (11, 'de', 'pro', 'Pro', 9, 1),
      (99, 'us', 'pro', 'Pro', 5, 1), (11, 'us', 'pro', 'Pro', NULL, 4), (11, NULL, 'x', 'X', 1, 1);)");
  EXPECT_EQ(json("watchlist"), flattened(R"({"count": 2,"items": [
      {"addedAt": "2026-05-09T06:13:20Z","alertOnAnyDrop": true,"alertOnFree": false,
      "alertOnNewVersion": true,"changeSinceAdded": -3,"country": "us","currency": "USD",
      "currentPrice": 1.99,"formattedPrice": "$1.99","lastCheckedAt": "2001-01-01T00:00:00Z",
      "name": "Amber Notes","platform": "mac","priceWhenAdded": 4.99,"purchasesChanged": 1,
      "purchasesTracked": 2,"seller": "Noor Amberfield","targetPrice": 0.99,"trackId": 11,
      "unavailable": false},
      {"country": "de","currentPrice": 2,"name": "Birch","platform": "ipad","purchasesChanged": 0,
      "purchasesTracked": 0,"trackId": 12}],"total": 2})"));
  EXPECT_TRUE(run("watchlist -n 1").starts_with("1 of 2 watching\n\n11 ")) << "the newest";
}

TEST_F(WatchlistTest, alignsItsColumns) {
  makeLibrary(R"(INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME, ZCOUNTRY, ZCURRENCY, ZPRICEWHENADDED,
      ZCURRENTPRICE, ZFORMATTEDPRICE, ZTARGETPRICE, ZISUNAVAILABLE, ZADDEDAT) VALUES
    (123456789012, 'Twelve digits', 'us', 'USD', 5, 5, NULL, 3.5, 0, 9),
    (1, 'A name of exactly thirty signs', 'us', 'EUR', 1, 2.5, '2,50 €', 1, 0, 8),
    (2, 'A name of exactly thirty-one ch', 'us', 'JPY', 500, 120, NULL, NULL, 1, 7),
    (3, 'Unknown price', 'us', 'USD', 4, NULL, NULL, NULL, NULL, 6),
    (4, 'No currency', 'us', NULL, NULL, 1234.5, NULL, 2, 0, 5),
    (6, 'Gärten 🇩🇪' || char(27) || '[31m' || char(10) || 'x', 'us', 'USD', 0, 0, 'Free', NULL, 0, 3);
    INSERT INTO ZPURCHASEPRICEPOINT (ZTRACKID, ZCOUNTRY, ZKEY, ZPRICE, ZDATE) VALUES
      (2, 'us', 'a', 1, 1), (2, 'us', 'a', 2, 2), (4, 'us', 'a', 1, 1), (4, 'us', 'a', 2, 2),
      (4, 'us', 'b', 1, 1), (4, 'us', 'b', 2, 2);)");
  EXPECT_EQ(run("watchlist"),
            "6 watching\n"
            "\n"
            "123456789012 Twelve digits                  $5.00      target $3.50\n"
            "1           A name of exactly thirty signs 2,50 €     up €1.50 since added\n"
            "2           A name of exactly thirty-one … ¥120       down ¥380 since added"
            "  (no longer sold)  1 in-app price changed\n"
            "3           Unknown price                  —          \n"
            "4           No currency                    1,234.50   target 2.00"
            "  2 in-app prices changed\n"
            "6           Gärten 🇩🇪[31m x                Free       ");
}

TEST_F(WatchlistTest, comparesNothingAcrossCurrencies) {
  makeLibrary(R"(
    ALTER TABLE ZWATCHEDAPP ADD COLUMN ZADDEDCURRENCY TEXT;
    ALTER TABLE ZWATCHEDAPP ADD COLUMN ZTARGETCURRENCY TEXT;
    INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME, ZCOUNTRY, ZCURRENCY, ZPRICEWHENADDED, ZCURRENTPRICE,
      ZTARGETPRICE, ZADDEDCURRENCY, ZTARGETCURRENCY, ZADDEDAT) VALUES
    (1, 'Moved', 'bg', 'EUR', 50, 25, 30, 'BGN', 'BGN', 9),
    (2, 'Set anew', 'bg', 'EUR', 50, 25, 30, 'BGN', NULL, 8),
    (3, 'Back', 'bg', 'EUR', 50, 25, 30, 'EUR', 'EUR', 7);
    INSERT INTO ZPURCHASEPRICEPOINT (ZTRACKID, ZCOUNTRY, ZKEY, ZPRICE, ZCURRENCY, ZDATE) VALUES
      (1, 'bg', 'a', 10, 'BGN', 1), (1, 'bg', 'a', 5, 'EUR', 2);)");
  EXPECT_EQ(run("watchlist"),
            "3 watching\n"
            "\n"
            "1           Moved                          €25.00     \n"
            "2           Set anew                       €25.00     target €30.00\n"
            "3           Back                           €25.00     down €25.00 since added");
  const std::string document = json("watchlist -n 1");
  EXPECT_EQ(document.find("priceWhenAdded"), std::string::npos) << document;
  EXPECT_EQ(document.find("changeSinceAdded"), std::string::npos);
  EXPECT_EQ(document.find("targetPrice"), std::string::npos);
}

TEST_F(WatchlistTest, readsAnOlderLibraryWithoutPurchases) {
  makeLibrary(
      "DROP TABLE ZPURCHASEPRICEPOINT;"
      "INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME, ZCOUNTRY) VALUES (1, 'Amber', 'us');");
  EXPECT_EQ(run("watchlist --json").find("purchases"), std::string::npos);
  EXPECT_EQ(run("purchase-history 1"),
            "Amber, in-app purchase prices\n"
            "  Nothing recorded yet. In-app prices are read with the watchlist's price checks, "
            "every few hours while Quillet runs.");
}

using MyAppsTest = LocalCommandTest;

TEST_F(MyAppsTest, keepsWhatTheOptionsAskForAlignedByName) {
  makeLibrary(R"(INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME, ZPLATFORMRAW,
      ZSOURCERAW, ZINSTALLEDVERSION, ZSTOREVERSION, ZINSTALLEDSIZEBYTES) VALUES
    (1, 'birch', 'mac', 'scanned', '1.9', '1.10', 900),
    (2, 'A name of exactly thirty-four sign', 'mac', 'scanned', '2', '2.0.0', 48200000),
    (3, 'A name of exactly thirty-five signs', 'iphone', 'manual', NULL, '3', NULL),
    (4, 'Cove', 'iphone', 'manual', '10.0', '9.9', 1);)");
  EXPECT_EQ(run("my-apps"),
            "4 in My Apps\n"
            "\n"
            "A name of exactly thirty-five sig… —           \n"
            "A name of exactly thirty-four sign 2           48.2 MB\n"
            "birch                              1.9         update to 1.10\n"
            "Cove                               10.0        1 byte");
  environment.set("LC_ALL", "C");
  EXPECT_EQ(run("my-apps -p iphone -n 1"),
            "1 of 4 in My Apps\n\nA name of exactly thirty-five s... -           ");
  EXPECT_EQ(told, "more match; -n 200 shows up to 200.");
  (void)run("my-apps -p iphone -n 2 --json");
  EXPECT_EQ(told, "");
  EXPECT_TRUE(run("my-apps --outdated").starts_with("1 of 4 in My Apps\n\nbirch "));
  EXPECT_EQ(run("my-apps -p ipad"), "0 of 4 in My Apps");
  LibraryWriter(database).run("DELETE FROM ZOWNEDAPP");
  EXPECT_EQ(run("my-apps"), "My Apps is empty. Scan your Applications folder in the app.");
}

TEST_F(MyAppsTest, tellWhatIsNoLongerSold) {
  makeLibrary(R"(ALTER TABLE ZOWNEDAPP ADD COLUMN ZISUNAVAILABLE INTEGER;
    INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME, ZINSTALLEDVERSION, ZSTOREVERSION, ZISUNAVAILABLE) VALUES
    (1, 'Alder', '1', '2', 1), (2, 'Birch', '1', '2', 0), (3, 'Cove', '1', '2', NULL);)");
  EXPECT_EQ(run("my-apps"),
            "3 in My Apps\n"
            "\n"
            "Alder                              1           no longer sold\n"
            "Birch                              1           update to 2\n"
            "Cove                               1           update to 2");
  const std::string document = json("my-apps");
  EXPECT_NE(document.find(R"("unavailable": true)"), std::string::npos) << document;
  EXPECT_NE(document.find(R"("unavailable": false)"), std::string::npos);
}

using CollectionsTest = LocalCommandTest;

TEST_F(CollectionsTest, showWhatIsInsideTheFirstWhoseNameMatches) {
  makeLibrary(R"(INSERT INTO ZAPPCOLLECTION VALUES
    (5, 'writing', 'pencil', 0), (3, 'Écriture', NULL, NULL), (9, 'Games to write home about', '', 1);
    INSERT INTO ZCOLLECTIONENTRY (ZTRACKID, ZNAME, ZSELLERNAME, ZCOUNTRY, ZPLATFORMRAW, ZNOTE,
      ZADDEDAT, ZCOLLECTION) VALUES
    (1, 'Amber', 'Noor', 'us', 'mac', 'Try' || char(10) || 'it', 10, 5),
    (2, 'Birch', NULL, NULL, NULL, NULL, 20, 5), (3, 'Cove', NULL, 'gb', 'ipad', '', 5, 9),
    (4, 'Stray', NULL, 'us', 'mac', '', 1, 77), (5, 'Loose', NULL, 'us', 'mac', '', 1, NULL);)");
  EXPECT_EQ(run("collections"),
            "Games to write home about          1 app\n"
            "writing                            2 apps\n"
            "Écriture                           0 apps");
  EXPECT_EQ(run("collections WRITING"),
            "writing, 2 apps\n"
            "\n"
            "2           Birch                                        \n"
            "1           Amber                          us, mac       Try it");
  EXPECT_TRUE(run("collections WRIT").starts_with("Games to write home about, 1 app\n"));
  EXPECT_EQ(run("collections éCRI"), "Écriture, 0 apps");
  EXPECT_TRUE(json("collections writing").ends_with(flattened(R"({
      "addedAt": "2001-01-01T00:00:10Z","country": "us","name": "Amber","note": "Try\nit",
      "platform": "mac","seller": "Noor","trackId": 1}],"count": 2,
      "createdAt": "2001-01-01T00:00:00Z","name": "writing","symbol": "pencil"})")));
  EXPECT_EQ(run("collections zzz"),
            "quillet: No collection matching 'zzz'\n"
            "  try: quillet collections --json lists them all\n");
  EXPECT_EQ(status, ExitStatus::nothingFound);
}

using SavedSearchesTest = LocalCommandTest;

TEST_F(SavedSearchesTest, printsThemAsCommands) {
  makeLibrary(R"(INSERT INTO ZSAVEDSEARCH VALUES
    (1, 'Cheap "pens"', 'red pen', 'ipad', 'us', 'priceAscending', '{"price":"paid"}', 0, 86400),
    (2, 'all', '', 'mac', 'gb', 'relevance', 'garbage', 0, NULL);)");
  EXPECT_EQ(run("saved-searches"), R"(all
  Query    (no term)
  Store    gb, mac
  Filters  none
  Run it   quillet search "" --country gb --json

Cheap "pens"
  Query    red pen
  Store    us, ipad
  Filters  Paid
  Run it   quillet search "red pen" --platform ipad --country us --paid --sort price-low --json)");
  EXPECT_TRUE(json("saved-searches").ends_with(flattened(R"("country": "us",
      "createdAt": "2001-01-01T00:00:00Z","filters": {"price": "paid"},
      "lastUsedAt": "2001-01-02T00:00:00Z","name": "Cheap \"pens\"","platform": "ipad",
      "query": "red pen","sort": "priceAscending"}],"total": 2})")));
}

using AllListsTest = LocalCommandTest;

TEST_F(AllListsTest, refuseOperandsBeforeTheyLookForData) {
  const std::string one =
      "purchase-history needs one track ID.\n  try: quillet purchase-history 1176895641 --json";
  const std::pair<Words, std::string> rows[] = {
      {"collections a b",
       "collections takes one collection name at most.\n"
       "  try: quillet collections \"Writing\" --json"},
      {"rank-history",
       "rank-history needs one numeric track ID.\n  try: quillet rank-history 1480068668 --json"},
      {"watchlist x",
       "watchlist takes no arguments, only options.\n  try: quillet watchlist --json"},
      {"purchase-history +1", one},
      {"purchase-history 1 2", one},
  };
  for (const auto& [words, message] : rows) {
    EXPECT_EQ(run(words), "quillet: " + message + "\n");
    EXPECT_EQ(status, ExitStatus::badUsage);
  }
  EXPECT_EQ(run("collections"),
            "quillet: Quillet has no data yet.\n"
            "  try: Open Quillet once, add something, then try again.\n");
  EXPECT_EQ(status, ExitStatus::nothingFound);
}

TEST_F(AllListsTest, bearRowsThatBreakEveryRule) {
  makeLibrary(R"(
    INSERT INTO ZWATCHEDAPP (ZTRACKID, ZNAME) VALUES (NULL, 'No ID'), (1, NULL), ('one', 'Text ID');
    INSERT INTO ZWATCHEDAPP VALUES (NULL, 7, 'usa', 'watch', x'ff41', 8, 9, 9, 'Euros', 'cheap',
      9e999, '', 1.5, 9e999, 'soon', 'yes', 7, -1, 0, x'00', 0, 'gone');
    INSERT INTO ZOWNEDAPP (ZTRACKID, ZNAME) VALUES (NULL, 'No ID'), (1, NULL);
    INSERT INTO ZOWNEDAPP VALUES (NULL, 7, 'usa', 'watch', x'ff41', 8, 9, 9, 9, 'stolen', -9e999,
      'x.y', 9, 9, '..', 'paid', 1.5, 'big', 9);
    INSERT INTO ZAPPCOLLECTION VALUES (1, NULL, 1, 1), (2, x'ff41', x'00', 'long ago');
    INSERT INTO ZCOLLECTIONENTRY (ZTRACKID, ZNAME, ZCOLLECTION) VALUES
      (NULL, 'No ID', 2), (1, NULL, 2), (1, 'Amber', 'two'), (7, x'ff41', 2);
    INSERT INTO ZSAVEDSEARCH VALUES (1, NULL, 'q', 'mac', 'us', 'name', '{}', 1, 1),
      (2, x'ff41', NULL, 'watch', 'usa', 'colour', x'0001', 'long ago', 9e999);)");
  for (const char* list : {"watchlist", "my-apps", "collections", "saved-searches"}) {
    const std::string text = run({list});
    EXPECT_EQ(status, ExitStatus::ok) << list;
    EXPECT_NE(text.find("\uFFFDA"), std::string::npos) << text;
    EXPECT_NE(run({list, "--json"}).find("\"total\": 1\n"), std::string::npos) << list;
    EXPECT_EQ(status, ExitStatus::ok) << list;
  }
}

}  // namespace
}  // namespace quillet
