// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

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

class ReviewsCommandTest : public CommandLineTest, protected ReviewRequests {
 protected:
  void answerReviews(std::string_view country, const std::vector<std::string_view>& items,
                     int offset = 0, std::string_view next = "") {
    http.answer(page(offset, country), 200,
                fmt::format(R"({{"data":[{}]{}}})", fmt::join(items, ","), next));
  }
  /// Of 20 reviews, one of them with four stars.
  void answerFullPage(int offset) {
    std::vector<std::string_view> items(19, kBad);
    items.push_back(kGood);
    answerReviews("us", items, offset, R"(,"next":"/more")");
  }
  void answerFeed(int number, std::size_t count, std::string_view country = "us") {
    const std::vector<std::string_view> entries(count, kFeedEntry);
    http.answer(feed(number, country), 200,
                fmt::format(R"({{"feed":{{"entry":[{}]}}}})", fmt::join(entries, ",")));
  }
};

TEST_F(ReviewsCommandTest, PrintsReviewsToRead) {
  answerLookup("11", {kMacApp});
  answerReviews("us", {kGood, kBad});
  io.style = {.utf8 = false, .width = 24};
  EXPECT_EQ(printed("reviews 11"), R"(Amber Notes
2 reviews (mac, us).

****-  Good[2J
Birk V., 2026-10-20,
edited
Opens fast.

Prints well on paper of
any size.

    Developer,
    2026-10-21
    Thank you for the
    kind words!

*----  Bad
2025-01-01
No.
)");
}

TEST_F(ReviewsCommandTest, TellsAPersonThatTheLimitEndedTheList) {
  io.errWidth = 80;
  const std::string remark = "quillet: more may match; -n 200 shows up to 200.\n";
  for (const auto& [options, expected] :
       {std::pair<const char*, std::string>{"-n 2", remark}, {"-n 3", ""}}) {
    answerReviews("us", {kGood, kBad});
    EXPECT_EQ(said(fmt::format("reviews 11 -p mac {}", options), 0), expected);
  }
}

TEST_F(ReviewsCommandTest, PassesOnHowManyOfWhichToRead) {
  const std::tuple<std::string, int, int> rows[] = {{"-n 25", 2, 25}, {"-n 2 --stars 4", 2, 2}};
  for (const auto& [options, pages, count] : rows) {
    for (int i = 0; i < pages; ++i) answerFullPage(20 * i);
    EXPECT_TRUE(json("reviews 11 -p mac " + options)
                    .starts_with(fmt::format(R"({{"count": {},"countries": ["us"],"fetched": {},)",
                                             count, 20 * pages)))
        << io.out.content;
  }
}

TEST_F(ReviewsCommandTest, SaysOnATerminalHowManyRequestsAFilterMayTake) {
  const std::string all = "looking for those reviews in 2 storefronts may take up to ";
  const std::tuple<std::string, std::size_t, std::string> rows[] = {
      {"--stars 1", 80, "quillet: " + all + "50 requests.\n"},
      {"--recent --stars 1", 80, "quillet: " + all + "52 requests.\n"},
      {"--stars 1", 0, ""},
      {"--limit 9", 80, ""},
  };
  for (const auto& [options, width, line] : rows) {
    for (const char* country : {"us", "gb"}) {
      if (options.starts_with("--recent")) answerFeed(1, 0, country);
      answerReviews(country, {kBad});
    }
    progressWidth = width;
    EXPECT_EQ(said("reviews 11 -p mac --countries us,gb " + options, 0), line);
  }
}

TEST_F(ReviewsCommandTest, ReadsStorefrontsTogetherAndPrintsThemInTheOrderGiven) {
  answerReviews("gb", {kGood});
  http.hold(page(0, "gb"));
  const Task<> later = callAfter(&clock, std::chrono::seconds(1), [this] {
    EXPECT_EQ(http.requests().size(), 3U) << "all are asked before the first answers";
    http.release(page(0, "gb"));
  });
  http.answer(page(0, "jp"), 403, "");
  answerReviews("de", {kBad});
  EXPECT_EQ(json("reviews 11 -p mac --countries gb,jp,DE,gb --stars 4"), flattened(R"({
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
  answerReviews("de", {kBad});
  EXPECT_EQ(printed("reviews 11 -p mac --countries jp,de"),
            "1 review (mac, jp, de).\n\nde: 1 review\n\n★☆☆☆☆  Bad\n2025-01-01\nNo.\n\n"
            "jp could not be read.\n");
}

TEST_F(ReviewsCommandTest, FailsOnlyWhereNoStorefrontAnswers) {
  http.answer(lookup("11", "gb"), 403, "");
  http.answer(lookup("11", "de"), 404, "");
  const std::string refused = "quillet: Apple's server returned HTTP 403.\n";
  EXPECT_EQ(said("reviews 11 --countries gb,de,fr", 3), refused) << "asks no third one";
  http.answer(page(0, "gb"), 403, "");
  http.answer(page(0, "de"), 400, "");
  EXPECT_EQ(said("reviews 11 -p mac --countries gb,de", 3), refused);
}

TEST_F(ReviewsCommandTest, LooksForTheAppWhereItIsSold) {
  answerLookup("11", {}, "gb");
  http.answer(lookup("11", "de"), 403, "");
  answerLookup("11", {kMacApp}, "fr");
  for (const char* country : {"gb", "de", "fr"}) answerReviews(country, {});
  EXPECT_EQ(printed("reviews 11 --countries gb,de,fr", 1),
            "No reviews published for this app in any of those storefronts.\n");

  for (const char* country : {"gb", "de"}) answerLookup("11", {}, country);
  EXPECT_EQ(said("reviews 11 --countries gb,de", 1),
            "quillet: Nothing with ID 11 in any of those storefronts.\n");
}

TEST_F(ReviewsCommandTest, ReadsTheRecentFeedWithItsVersions) {
  answerFeed(1, 50);
  answerFeed(2, 3);
  printed("reviews 11 -p mac --recent -n 60 --json");
  EXPECT_TRUE(says("\"count\": 53,") && says("\"feedEmpty\": false,"));
  answerFeed(1, 50);
  EXPECT_EQ(printed("reviews 11 -p mac --recent -n 1"),
            "1 review (mac, us).\n\n★★★★★  New\nNoor, 2026-11-20, version 2.1\nFresh.\n");
}

TEST_F(ReviewsCommandTest, FallsBackFromAnEmptyFeedAloneAndSaysSo) {
  for (const char* country : {"us", "jp"}) answerFeed(1, 0, country);
  answerReviews("us", {kBad});
  answerReviews("jp", {});
  EXPECT_TRUE(printed("reviews 11 -p mac --recent --versions --countries us,jp")
                  .ends_with("No.\n\njp: 0 reviews\n\nApple's recent-reviews feed was empty for "
                             "us; those came from the default source, without versions.\n"))
      << io.out.content;
  http.answer(feed(1), 200, "no feed");
  EXPECT_EQ(printed("reviews 11 -p mac --recent", 3), "");
}

TEST_F(ReviewsCommandTest, DatesReviewsByTheReleases) {
  answerReviews("us", {});
  answerReviews("gb", {kGood, kBad});
  http.answer(enrichment(11, "mac", "gb"), 200, R"({"data":[{"attributes":{"versionHistory":[
    {"versionDisplay":"3.0","releaseDate":"2026-10-20T09:00:01Z"},
    {"versionDisplay":"2.0","releaseDate":"2026-10-20T09:00:00Z"},
    {"versionDisplay":"1.9","releaseDate":"2025-01-02T00:00:00Z"}]}}]})");
  printed("reviews 11 -p mac --countries us,gb --versions");
  EXPECT_TRUE(says("Birk V., 2026-10-20, version 2.0, edited\n"));
  EXPECT_TRUE(says("Bad\n2025-01-01\n")) << "older than the oldest release";

  answerReviews("de", {kBad});
  http.answer(enrichment(11, "mac", "de"), 403, "");
  EXPECT_EQ(said("reviews 11 -p mac -c de --versions", 0),
            "quillet: the release history could not be read: Apple's server returned HTTP 403.\n");
}

TEST_F(ReviewsCommandTest, SaysWhyThereIsNothing) {
  const std::string none = "No reviews published for this app in this storefront.\n";
  for (int i = 0; i < 3; ++i) http.answer(page(0), 404, "");
  answerLookup("11", {kMacApp});
  EXPECT_EQ(printed("reviews 11 -p mac --versions", 1), none);
  http.answer(lookup("11"), 403, "");
  EXPECT_EQ(printed("reviews 11 -p mac", 1), none);
  answerLookup("11", {});
  EXPECT_TRUE(
      said("reviews 11 -p mac", 1).starts_with("quillet: Nothing with ID 11 in the us storefr"));
  answerReviews("us", {kBad, kGood});
  EXPECT_EQ(printed("reviews 11 -p mac --stars 2", 1),
            "None of the 2 reviews read match that filter.\n");
}

}  // namespace
}  // namespace quillet
