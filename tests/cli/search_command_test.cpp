// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search_command.h"

#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kFirst =
    R"({"trackId":11,"trackName":"Amber Notes","kind":"mac-software",
  "price":4.99,"formattedPrice":"$4.99","currency":"USD","averageUserRating":4.26,
  "userRatingCount":12345,"primaryGenreName":"Productivity","genres":["Productivity","Utilities"],
  "sellerName":"Noor Amberfield","bundleId":"com.amberfield.notes","version":"2.1",
  "releaseDate":"2019-05-01T07:00:00Z","currentVersionReleaseDate":"2026-11-02T10:00:00Z",
  "minimumOsVersion":"13.0","fileSizeBytes":"48000000","description":"Long.",
  "trackViewUrl":"https://apps.example/app/id11"})";
constexpr std::string_view kSecond = R"({"trackId":12,"trackName":"Birch\u001b[31m\nNotes",
  "kind":"mac-software","price":0,"currency":"USD","averageUserRating":0,"userRatingCount":0})";
constexpr std::string_view kThird = R"({"trackId":13,"trackName":"Cove","kind":"software",
  "price":0.99,"formattedPrice":"$0.99","averageUserRating":0,"userRatingCount":0,
  "currentVersionReleaseDate":"2026-11-01T00:00:00Z"})";

class SearchCommandTest : public CommandLineTest {
 protected:
  static std::string address(std::string_view term, std::string_view entity,
                             std::string_view country, int limit) {
    return fmt::format("https://store.example/search?term={}&entity={}&country={}&limit={}", term,
                       entity, country, limit);
  }
};

TEST_F(SearchCommandTest, PrintsJsonWithEverythingKnownAndNothingElse) {
  clock.setNow(*parseInternetDate("2026-11-21T12:00:00Z"));
  http.answer(address("notes", "macSoftware", "gb", 200), 200, answer({kSecond, kFirst, kThird}));
  EXPECT_EQ(json({"search", " notes ", "-c", "gb", "--updated-within", "month", "--max-price", "5",
                  "--min-rating", "0", "-n", "2"}),
            flattened(R"({"count": 2,
    "query": {"country": "gb","filters": {"maxPrice": "5.0","updatedWithin": "month"},"limit": 2,
      "platform": "mac","scanned": 3,"sort": "relevance","term": "notes"},
    "results": [{"bundleId": "com.amberfield.notes","currency": "USD","formattedPrice": "$4.99",
      "free": false,"genre": "Productivity","genres": ["Productivity","Utilities"],
      "kind": "mac-software","lastUpdated": "2026-11-02T10:00:00Z","minimumOS": "13.0",
      "name": "Amber Notes","price": 4.99,"rating": 4.26,"ratingCount": 12345,
      "releaseDate": "2019-05-01T07:00:00Z","seller": "Noor Amberfield","sizeBytes": 48000000,
      "storeURL": "https://apps.example/app/id11","trackId": 11,"version": "2.1"},
      {"formattedPrice": "$0.99","free": false,"kind": "software",
      "lastUpdated": "2026-11-01T00:00:00Z","name": "Cove","price": 0.99,"ratingCount": 0,
      "trackId": 13}]})"));
  EXPECT_TRUE(io.out.content.starts_with("{\n  \"count\"") && io.out.content.ends_with("\n}\n"));
  EXPECT_EQ(io.out.writes, 1);
  EXPECT_EQ(io.err.content, "");
}

TEST_F(SearchCommandTest, PrintsATableThatATerminalCanBearWhateverTheStoreSends) {
  http.answer(address("notes", "macSoftware", "us", 25), 200, answer({kFirst, kSecond, kThird}));
  EXPECT_EQ(printed({"search", "notes"}),
            "3 results for \"notes\" (mac, us).\n"
            "\n"
            "11  Amber Notes      $4.99  ★★★★½ 4.3 (12,345)  2026-11-02  Productivity  "
            "Noor Amberfield\n"
            "12  Birch[31m Notes   Free  —                   —\n"
            "13  Cove             $0.99  none yet            2026-11-01\n");
}

TEST_F(SearchCommandTest, StopsExaminingAtTheLimitAndSortsWhatItKept) {
  http.answer(address("notes", "iPadSoftware", "us", 200), 200, answer({kFirst, kThird, kSecond}));
  EXPECT_TRUE(printed({"search", "notes", "-p", "ipad", "--paid", "-n", "2", "-s", "price-low"})
                  .starts_with("2 results for \"notes\" (ipad, us), from 2 scanned.\n\n13  Cove"))
      << io.out.content;
}

TEST_F(SearchCommandTest, SaysThatItFoundNothing) {
  for (int i = 0; i < 2; ++i) {
    http.answer(address("zzz", "macSoftware", "us", 25), 200, answer({}));
  }
  EXPECT_EQ(printed({"search", "zzz"}, 1), "No results for \"zzz\" (mac, us).\n");
  EXPECT_TRUE(json({"search", "zzz"}, 1)
                  .starts_with(R"({"count": 0,"query": {"country": "us","filters": {},"limit")"));
  http.answer(address("zzz", "macSoftware", "us", 200), 200, answer({kThird}));
  EXPECT_EQ(printed({"search", "zzz", "--free"}, 1),
            "No results for \"zzz\" (mac, us), from 1 scanned.\n");
  http.answer(address("zzz", "macSoftware", "us", 200), 200, answer({kFirst}));
  printed({"search", "zzz", "--genre", "productivity"}, 1);
  EXPECT_EQ(io.err.content, "quillet: Apple names this category 'Productivity'.\n");
}

TEST_F(SearchCommandTest, LeavesOutWhatIsOwned) {
  ownedTrackIds = [] { return TrackIds{11, 99}; };
  http.answer(address("notes", "macSoftware", "us", 200), 200, answer({kFirst, kThird}));
  EXPECT_TRUE(printed({"search", "notes", "--hide-owned"})
                  .starts_with("1 result for \"notes\" (mac, us), from 2 scanned.\n\n13"))
      << io.out.content;

  ownedTrackIds = []() -> TrackIds {
    throw CLIError(CLIError::Code::notFound, "Quillet has no data yet.");
  };
  EXPECT_EQ(said({"search", "x", "--hide-owned"}, 1), "quillet: Quillet has no data yet.\n");
  EXPECT_EQ(http.requests().size(), 1U) << "the library comes before the store";
}

TEST_F(SearchCommandTest, GivesUpAfterTheAllowedRetries) {
  const auto url = address("notes", "macSoftware", "us", 25);
  const std::string gaveUp =
      "quillet: Apple is rate limiting this address (HTTP 429).\n"
      "  try: Wait a minute, then run the same command again.\n";
  http.answer(url, 429, "");
  EXPECT_EQ(said({"search", "notes", "--no-retry"}, 4), gaveUp);
  std::string waits;
  for (int i = 0; i < 6; ++i) http.answer(url, 429, "");
  for (int i = 0; i < 5; ++i) {
    waits += fmt::format("quillet: Apple is rate limiting; waiting {}s, then retrying ({} of 6)\n",
                         i == 0 ? 20 : 45, i + 2);
  }
  EXPECT_EQ(said({"search", "notes", "--retry", "5"}, 4), waits + gaveUp);
  EXPECT_EQ(clock.waits(), (std::vector<std::chrono::milliseconds>{20s, 45s, 45s, 45s, 45s}));
  EXPECT_EQ(io.out.content, "");
}

}  // namespace
}  // namespace quillet
