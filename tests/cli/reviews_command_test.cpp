// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews_command.h"

#include "store/records/storefronts.h"
#include "support/command_line_test.h"

namespace quillet {
namespace {

constexpr std::string_view kMacApp =
    R"({"trackId":11,"trackName":"Amber\u0007 Notes","kind":"mac-software"})";
constexpr std::string_view kGood = R"({"attributes":{"title":"Good\u001b[2J","rating":4,
  "review":"Opens fast.\n\n\n\nPrints well on paper of any size.","userName":"Birk V.",
  "date":"2026-10-20T09:00:00Z","isEdited":true,
  "developerResponse":{"body":"Thank you for the kind words!","modified":"2026-10-21T00:00:00Z"}}})";
constexpr std::string_view kBad =
    R"({"attributes":{"title":"Bad","rating":1,"review":"No.","date":"2025-01-01T00:00:00Z"}})";
constexpr std::string_view kFeedEntry = R"({"author":{"name":{"label":"Noor"}},
  "im:rating":{"label":"5"},"im:version":{"label":"2.1"},"title":{"label":"New"},
  "content":{"label":"Fresh."},"updated":{"label":"2026-11-20T01:00:00-07:00"}})";

class ReviewsCommandTest : public CommandLineTest {
 protected:
  static std::string page(int offset, std::string_view country = "us",
                          std::string_view platform = "mac") {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/{}/apps/11/reviews?platform={}&limit=20"
        "&offset={}&l=en-US",
        country, platform, offset);
  }
  static std::string feed(int number, std::string_view country = "us") {
    return fmt::format(
        "https://store.example/{}/rss/customerreviews/page={}/id=11/sortBy=mostRecent/json",
        country, number);
  }
  enum class Next { none, some };
  static std::string reviews(std::vector<std::string_view> items, Next next = Next::none) {
    return fmt::format(R"({{"data":[{}]{}}})", fmt::join(items, ","),
                       next == Next::some ? R"(,"next":"/more")" : "");
  }
  static std::string fullPage() {
    std::vector<std::string_view> items(20, kBad);
    items[7] = kGood;
    return reviews(items, Next::some);
  }
  static std::string feedOf(std::size_t count) {
    const std::vector<std::string_view> entries(count, kFeedEntry);
    return fmt::format(R"({{"feed":{{"entry":[{}]}}}})", fmt::join(entries, ","));
  }
};

TEST_F(ReviewsCommandTest, PrintsReviewsToRead) {
  http.answer(lookup("11"), 200, answer({kMacApp}));
  http.answer(page(0), 200, reviews({kGood, kBad}));
  io.style.width = 24;
  EXPECT_EQ(printed({"reviews", "11"}), R"(Amber Notes
2 reviews (mac, us).

★★★★☆  Good[2J
Birk V., 2026-10-20, edited
Opens fast.

Prints well on paper of
any size.

    Developer, 2026-10-21
    Thank you for the
    kind words!

★☆☆☆☆  Bad
2025-01-01
No.
)");
  http.answer(page(0, "us", "ipad"), 200, reviews({kBad}));
  io.style = {.utf8 = false};
  EXPECT_EQ(printed({"reviews", "11", "-p", "iphone"}),
            "1 review (iphone, us).\n\n*----  Bad\n2025-01-01\nNo.\n")
      << "a named platform needs no lookup";
}

TEST_F(ReviewsCommandTest, ReadsNoMorePagesThanItTakes) {
  const std::tuple<std::string, Words, int, int> rows[] = {{"45", {}, 3, 45},
                                                           {"40", {}, 2, 40},
                                                           {"2", {"--stars", "4"}, 2, 2},
                                                           {"25", {"--stars", "3"}, 25, 0}};
  for (const auto& [limit, filter, pages, count] : rows) {
    for (int i = 0; i < pages; ++i) http.answer(page(20 * i), 200, fullPage());
    Words words{"reviews", "11", "-p", "mac", "-n", limit};
    words.insert(words.end(), filter.begin(), filter.end());
    EXPECT_TRUE(json(words, count == 0)
                    .starts_with(fmt::format(R"({{"count": {},"countries": ["us"],"fetched": {},)",
                                             count, 20 * pages)))
        << io.out.content;
  }
}

TEST_F(ReviewsCommandTest, ReadsStorefrontsTogetherAndPrintsThemInTheOrderGiven) {
  http.answer(page(0, "gb"), 200, reviews({kGood}));
  http.answer(page(0, "jp"), 403, "");
  http.answer(page(0, "de"), 200, reviews({kBad}));
  EXPECT_EQ(json({"reviews", "11", "-p", "mac", "--countries", "gb,jp,DE,gb", "--stars", "4"}),
            flattened(R"({
    "count": 1,"countries": ["gb","jp","de"],"fetched": 2,"platform": "mac",
    "storefronts": [
      {"count": 1,"country": "gb","fetched": 1,"reviews": [
        {"body": "Opens fast.\n\n\n\nPrints well on paper of any size.",
         "date": "2026-10-20T09:00:00Z","developerResponse": "Thank you for the kind words!",
         "developerResponseDate": "2026-10-21T00:00:00Z","isEdited": true,"rating": 4,
         "title": "Good\u001b[2J","userName": "Birk V."}]},
      {"count": 0,"country": "de","fetched": 1,"reviews": []}],
    "trackId": 11,"unavailable": ["jp"]})"));
  http.answer(page(0, "jp"), 403, "");
  http.answer(page(0, "de"), 200, reviews({kBad}));
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac", "--countries", "jp,de"}),
            "1 review (mac, jp, de).\n\nde: 1 review\n\n★☆☆☆☆  Bad\n2025-01-01\nNo.\n\n"
            "jp could not be read.\n");
}

TEST_F(ReviewsCommandTest, AsksAllStorefrontsBeforeTheFirstAnswers) {
  for (const std::string_view country : kTrackedStorefronts) {
    http.answer(page(0, country), 200, reviews({kBad}));
  }
  http.hold(page(0, "us"));
  const auto release = [this] {
    EXPECT_EQ(http.requests().size(), 10U);
    http.release(page(0, "us"));
  };
  const Task<> later = callAfter(&clock, std::chrono::seconds(1), release);
  printed({"reviews", "11", "-p", "mac", "--all-countries"});
  EXPECT_TRUE(says("\n\nus: 1 review\n"));
}

TEST_F(ReviewsCommandTest, FailsOnlyWhereNoStorefrontAnswers) {
  const std::string refused = "quillet: Apple's server returned HTTP 403.\n";
  http.answer(lookup("11", "gb"), 403, "");
  http.answer(lookup("11", "de"), 404, "");
  EXPECT_EQ(said({"reviews", "11", "--countries", "gb,de,fr"}, 3), refused) << "asks no third one";
  http.answer(page(0, "gb"), 403, "");
  http.answer(page(0, "de"), 400, "");
  EXPECT_EQ(said({"reviews", "11", "-p", "mac", "--countries", "gb,de"}, 3), refused);
}

TEST_F(ReviewsCommandTest, TakesAPageThatIsNotThereForAnEmptyOne) {
  http.answer(page(0), 200, fullPage());
  http.answer(page(20), 404, "");
  http.answer(page(0, "gb"), 404, "");
  const std::string text = json({"reviews", "11", "-p", "mac", "--countries", "us,gb", "-n", "25"});
  EXPECT_TRUE(text.starts_with(R"({"count": 20,)")) << text;
  EXPECT_TRUE(text.ends_with(R"({"count": 0,"country": "gb","fetched": 0,"reviews": []}],)"
                             R"("trackId": 11,"unavailable": []})"))
      << text;
}

TEST_F(ReviewsCommandTest, LooksForTheAppWhereItIsSold) {
  http.answer(lookup("11", "gb"), 200, answer({}));
  http.answer(lookup("11", "de"), 403, "");
  http.answer(lookup("11", "fr"), 200, answer({kMacApp}));
  for (const char* country : {"gb", "de", "fr"}) http.answer(page(0, country), 200, reviews({}));
  EXPECT_EQ(printed({"reviews", "11", "--countries", "gb,de,fr"}, 1),
            "No reviews published for this app in any of those storefronts.\n");

  http.answer(lookup("11", "gb"), 200, answer({}));
  http.answer(lookup("11", "de"), 200, answer({}));
  EXPECT_EQ(said({"reviews", "11", "--countries", "gb,de"}, 1),
            "quillet: Nothing with ID 11 in any of those storefronts.\n");
}

TEST_F(ReviewsCommandTest, ReadsTheRecentFeedWithItsVersions) {
  http.answer(feed(1), 200, feedOf(50));
  http.answer(feed(2), 200, feedOf(3));
  printed({"reviews", "11", "-p", "mac", "--recent", "-n", "60", "--json"});
  EXPECT_TRUE(says("\"count\": 53,"));
  EXPECT_TRUE(says("\"feedEmpty\": false,"));
  http.answer(feed(1), 200, feedOf(50));
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac", "--recent", "-n", "1"}),
            "1 review (mac, us).\n\n★★★★★  New\nNoor, 2026-11-20, version 2.1\nFresh.\n");
}

TEST_F(ReviewsCommandTest, FallsBackFromAnEmptyFeedAloneAndSaysSo) {
  http.answer(feed(1), 200, feedOf(0));
  http.answer(page(0), 200, reviews({kBad}));
  http.answer(feed(1, "jp"), 200, feedOf(0));
  http.answer(page(0, "jp"), 200, reviews({}));
  EXPECT_TRUE(
      printed({"reviews", "11", "-p", "mac", "--recent", "--versions", "--countries", "us,jp"})
          .ends_with("No.\n\njp: 0 reviews\n\nApple's recent-reviews feed was empty for "
                     "us; those came from the default source, "
                     "without versions.\n"))
      << io.out.content;
  http.answer(feed(1), 200, "no feed");
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac", "--recent"}, 3), "");
}

TEST_F(ReviewsCommandTest, DatesReviewsByTheReleases) {
  const auto releases = R"({"data":[{"id":"11","attributes":{"versionHistory":[
    {"versionDisplay":"3.0","releaseDate":"2026-10-20T09:00:01Z"},
    {"versionDisplay":"2.0","releaseDate":"2026-10-20T09:00:00Z"},
    {"versionDisplay":"1.9","releaseDate":"2025-01-02T00:00:00Z"}]}}]})";
  http.answer(page(0, "us"), 200, reviews({}));
  http.answer(page(0, "gb"), 200, reviews({kGood, kBad}));
  http.answer(enrichment(11, "mac", "gb"), 200, releases);
  printed({"reviews", "11", "-p", "mac", "--countries", "us,gb", "--versions"});
  EXPECT_TRUE(says("Birk V., 2026-10-20, version 2.0, edited\n"));
  EXPECT_TRUE(says("Bad\n2025-01-01\n")) << "older than the oldest release";

  http.answer(page(0, "de"), 200, reviews({kBad}));
  http.answer(enrichment(11, "mac", "de"), 403, "");
  EXPECT_EQ(said({"reviews", "11", "-p", "mac", "-c", "de", "--versions"}, 0),
            "quillet: the release history could not be read: Apple's server returned HTTP 403.\n");
}

TEST_F(ReviewsCommandTest, SaysWhyThereIsNothing) {
  const std::string none = "No reviews published for this app in this storefront.\n";
  for (int i = 0; i < 4; ++i) http.answer(page(0), i == 0 ? 200 : 404, reviews({}));
  for (int i = 0; i < 2; ++i) http.answer(lookup("11"), 200, answer({kMacApp}));
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac", "--versions"}, 1), none);
  EXPECT_NE(json({"reviews", "11"}, 1).find(R"("reviews": [],)"), std::string::npos);
  EXPECT_EQ(io.err.content, "");
  http.answer(lookup("11"), 403, "");
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac"}, 1), none);
  http.answer(lookup("11"), 200, answer({}));
  EXPECT_TRUE(said({"reviews", "11", "-p", "mac"}, 1)
                  .starts_with("quillet: Nothing with ID 11 in the us storefront.\n"));
  http.answer(page(0), 200, reviews({kBad, kGood}));
  EXPECT_EQ(printed({"reviews", "11", "-p", "mac", "--stars", "2"}, 1),
            "None of the 2 reviews read match that filter.\n");
}

}  // namespace
}  // namespace quillet
