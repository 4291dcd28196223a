// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kFirst =
    R"({"trackId":11,"trackName":"Amber Notes","kind":"mac-software","price":4.99,
  "formattedPrice":"$4.99","averageUserRating":4.26,"userRatingCount":12345,
  "primaryGenreName":"Productivity","sellerName":"Noor Amberfield",
  "currentVersionReleaseDate":"2026-11-02T10:00:00Z"})";
constexpr std::string_view kSecond = R"({"trackId":12,"trackName":"Birch\u001b[31m\nNotes",
  "kind":"mac-software","averageUserRating":0,"userRatingCount":0})";
constexpr std::string_view kThird = R"({"trackId":13,"trackName":"Cove","kind":"software",
  "price":0.99,"formattedPrice":"$0.99","averageUserRating":0,"userRatingCount":0,
  "currentVersionReleaseDate":"2026-11-01T00:00:00Z"})";

class SearchCommandTest : public CommandLineTest {
 protected:
  void answerSearch(int limit, const std::vector<std::string_view>& apps,
                    std::string_view store = "macSoftware&country=us") {
    http.answer(search(limit, store), 200, answer(apps));
  }
  static std::string search(int limit, std::string_view store = "macSoftware&country=us") {
    return fmt::format("https://store.example/search?term=notes&entity={}&limit={}", store, limit);
  }
};

TEST_F(SearchCommandTest, PrintsWhatItKeptAsJsonInTheOrderAsked) {
  clock.setNow(*parseInternetDate("2026-11-21T12:00:00Z"));
  answerSearch(200, {kSecond, kFirst, kThird}, "iPadSoftware&country=gb");
  EXPECT_EQ(json({"search", " notes ", "-c", "gb", "-p", "ipad", "--updated-within", "month",
                  "--max-price", "5", "--min-rating", "0", "-n", "2", "-s", "price-low"}),
            flattened(R"({"count": 2,
    "query": {"country": "gb","filters": {"maxPrice": "5.0","updatedWithin": "month"},"limit": 2,
      "platform": "ipad","scanned": 3,"sort": "priceAscending","term": "notes"},
    "results": [{"formattedPrice": "$0.99","free": false,"kind": "software",
      "lastUpdated": "2026-11-01T00:00:00Z","name": "Cove","price": 0.99,"ratingCount": 0,
      "trackId": 13},{"formattedPrice": "$4.99","free": false,"genre": "Productivity",
      "kind": "mac-software","lastUpdated": "2026-11-02T10:00:00Z","name": "Amber Notes",
      "price": 4.99,"rating": 4.26,"ratingCount": 12345,"seller": "Noor Amberfield",
      "trackId": 11}]})"));
  EXPECT_TRUE(io.out.content.starts_with("{\n  \"count\"") && io.out.content.ends_with("\n}\n"));
  EXPECT_EQ(io.out.writes, 1);
}

TEST_F(SearchCommandTest, PrintsATableThatATerminalCanBearWhateverTheStoreSends) {
  answerSearch(25, {kFirst, kSecond, kThird});
  EXPECT_EQ(printed("search notes"),
            "3 results for \"notes\" (mac, us).\n"
            "\n"
            "11  Amber Notes      $4.99  ★★★★½ 4.3 (12,345)  2026-11-02  Productivity  "
            "Noor Amberfield\n"
            "12  Birch[31m Notes   Free  —                   —\n"
            "13  Cove             $0.99  none yet            2026-11-01\n");
}

TEST_F(SearchCommandTest, SaysThatItFoundNothing) {
  answerSearch(25, {});
  EXPECT_EQ(printed("search notes", 1), "No results for \"notes\" (mac, us).\n");
  answerSearch(200, {kFirst});
  EXPECT_EQ(printed("search notes --genre productivity", 1),
            "No results for \"notes\" (mac, us), from 1 scanned.\n");
  EXPECT_EQ(io.err.content, "quillet: Apple names this category 'Productivity'.\n");
}

TEST_F(SearchCommandTest, ShowsWhatAnAppCostsInsideWhereItWasRead) {
  answerSearch(200, {kFirst});
  http.answer(sold({11}), 200, R"({"data":[{"id":"11","views":{"top-in-app-purchasables":{"data":[
      {"id":"1","attributes":{"name":"Pro","isSubscription":true,"offers":[{"price":39.99,
        "currencyCode":"USD","recurringSubscriptionPeriod":"P1Y"}]}},
      {"id":"2","attributes":{"name":"Lifetime","offers":[{"price":99.99,
        "currencyCode":"USD"}]}}]}}}]})");
  EXPECT_EQ(printed("search notes --purchases has-iap"),
            "1 result for \"notes\" (mac, us), from 1 scanned.\n"
            "\n"
            "11  Amber Notes  $4.99  ★★★★½ 4.3 (12,345)  sub $40/yr, unlock $100  2026-11-02  "
            "Productivity  Noor Amberfield\n");
}

TEST_F(SearchCommandTest, SaysWhichFilterKeepsTheMatchesOut) {
  const std::pair<std::string, std::string> rows[] = {
      {"--genre Productivityy",
       "Apple has no category 'Productivityy'; the nearest is 'Productivity'."},
      {"--max-price 0.5 --paid", "2 of the 3 scanned would match without --max-price."},
      {"--free --genre Productivity", "1 of the 3 scanned would match without --free."},
      {"--architecture needs-rosetta --max-price 1 --paid",
       "--architecture is for Mac apps: 1 of --platform iphone matches the rest."},
      // No single one would help.
      {"--max-price 0.1 --paid --released-before 1990 --updated-within month", ""},
  };
  for (const auto& [filters, notice] : rows) {
    answerSearch(200, {kFirst, kSecond, kThird});
    EXPECT_EQ(said(Words("search notes " + filters), 1),
              notice.empty() ? "" : "quillet: " + notice + "\n");
  }
  answerSearch(200, {kFirst});
  EXPECT_EQ(said("search notes --free", 1),
            "quillet: The one scanned would match without --free.\n");
}

TEST_F(SearchCommandTest, TellsAPersonThatTheLimitEndedTheList) {
  io.errWidth = 200;
  const std::string sorted =
      "quillet: only the first 2 in the store's order were sorted, and more may match; -n 200 "
      "shows "
      "up to 200.\n";
  const std::tuple<std::string, int, std::string> rows[] = {
      {"-n 2", 2, "quillet: more may match; -n 200 shows up to 200.\n"},
      {"-n 2 --sort name --json", 2, sorted},
      {"-n 3 --max-price 9", 200, ""},
      {"-n 4", 4, ""},
  };
  for (const auto& [options, asked, remark] : rows) {
    answerSearch(asked, asked == 2 ? std::vector<std::string_view>{kFirst, kSecond}
                                   : std::vector<std::string_view>{kFirst, kSecond, kThird});
    EXPECT_EQ(said(Words("search notes " + options), 0), remark) << options;
  }
  io.errWidth = 0;
  answerSearch(2, {kFirst, kSecond});
  EXPECT_EQ(said("search notes -n 2", 0), "") << "a script";
}

TEST_F(SearchCommandTest, LeavesOutWhatIsOwned) {
  ownedTrackIds = [] { return TrackIds{11, 99}; };
  answerSearch(200, {kFirst, kThird});
  EXPECT_TRUE(printed("search notes --hide-owned")
                  .starts_with("1 result for \"notes\" (mac, us), from 2 scanned.\n\n13"))
      << io.out.content;

  ownedTrackIds = []() -> TrackIds {
    throw CLIError(CLIError::Code::notFound, "Quillet has no data yet.");
  };
  EXPECT_EQ(said("search x --hide-owned", 1), "quillet: Quillet has no data yet.\n");
  EXPECT_EQ(http.requests().size(), 1U) << "the library comes before the store";
}

TEST_F(SearchCommandTest, GivesUpAfterTheAllowedRetries) {
  const std::string gaveUp =
      "quillet: Apple is rate limiting this address (HTTP 429).\n"
      "  try: Wait a minute, then run the same command again.\n";
  for (int i = 0; i < 7; ++i) http.answer(search(25), 429, "");
  EXPECT_EQ(said("search notes --no-retry", 4), gaveUp);
  EXPECT_TRUE(
      said("search notes --retry 5", 4)
          .ends_with("Apple is rate limiting; waiting 45s, then retrying (6 of 6)\n" + gaveUp));
  EXPECT_EQ(clock.waits(), (std::vector<std::chrono::milliseconds>{20s, 45s, 45s, 45s, 45s}));
  EXPECT_EQ(io.out.content, "");
}

}  // namespace
}  // namespace quillet
